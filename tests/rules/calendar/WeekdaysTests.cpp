#include "rules/calendar/Weekdays.hpp"

#include <gmock/gmock.h>

#include <string>

#include "tests/datetime/Instants.hpp"
#include "tests/fakes/SystemRegion.hpp"
#include "tests/fakes/SystemTimeZone.hpp"

namespace Hilalor {
namespace {

TEST(Weekdays, BeginAndRestAsTheRegionHasIt) {
  const SystemTimeZone zone("Asia/Beirut");
  const struct {
    const char* region;
    const char* symbols;
    int first;
    std::set<int> weekend;
  } cases[] = {{"en_US", "SuMoTuWeThFrSa", 1, {7, 1}},
               {"de_DE", "MoTuWeThFrSaSu", 2, {7, 1}},
               {"ar_EG", "SaSuMoTuWeThFr", 7, {6, 7}},
               {"fa_IR", "SaSuMoTuWeThFr", 7, {6}}};
  for (const auto& test : cases) {
    SCOPED_TRACE(test.region);
    const SystemRegion region(test.region);
    // A week that runs over a day without midnight.
    const auto moment = Moment::at(utc(2025, 3, 27, 22));
    std::string symbols;
    for (const auto& column : orderedWeekdays(moment))
      symbols += column.symbol;
    EXPECT_EQ(symbols, test.symbols);
    EXPECT_EQ(orderedWeekdays(moment).front().weekday, test.first);
    EXPECT_EQ(weekendWeekdays(moment), test.weekend);
  }
}

}  // namespace
}  // namespace Hilalor
