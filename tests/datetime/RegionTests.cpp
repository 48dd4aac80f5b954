#include "datetime/Region.hpp"

#include <gmock/gmock.h>

#include <cstdlib>
#include <set>

#include "tests/datetime/Instants.hpp"
#include "tests/fakes/SystemRegion.hpp"

namespace Hilalor {
namespace {

TEST(Region, HasTheWeekOfItsTerritory) {
  const struct {
    const char* locale;
    int firstWeekday;
    std::set<int> weekend;
  } cases[] = {
      {"ar_SA.UTF-8", 1, {6, 7}}, {"en_SA", 1, {6, 7}},       {"ar_EG.UTF-8", 7, {6, 7}},
      {"fa_IR.UTF-8", 7, {6}},    {"en_US.UTF-8", 1, {7, 1}}, {"de_DE.UTF-8@euro", 2, {7, 1}},
      {"ms_MY.UTF-8", 2, {7, 1}}, {"dv_MV.UTF-8", 6, {7, 1}}, {"C", 1, {7, 1}},
      {"C.UTF-8", 1, {7, 1}},     {"POSIX", 1, {7, 1}},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.locale);
    const SystemRegion region(test.locale);
    const auto calendar = Calendar::ofUser(Moment::at({}));
    EXPECT_EQ(calendar.firstWeekday(), test.firstWeekday);
    std::set<int> weekend;
    for (unsigned day = 1; day <= 7; ++day) {
      const auto noon = utc(2025, 6, day, 12);
      if (calendar.isWeekend(noon)) weekend.insert(calendar.weekday(noon));
    }
    EXPECT_EQ(weekend, test.weekend);
  }
}

TEST(Region, IsTheFirstThatTheEnvironmentNames) {
  const SystemRegion restored("");
  unsetenv("LANG");
  unsetenv("LC_TIME");
  EXPECT_EQ(Region::current(), Region());
  setenv("LANG", "de_DE.UTF-8", 1);
  EXPECT_EQ(Region::current().localeIdentifier, "de_DE");
  setenv("LC_TIME", "ar_SA", 1);
  EXPECT_EQ(Region::current().localeIdentifier, "ar_SA");
  setenv("LC_ALL", "C", 1);
  EXPECT_EQ(Region::current(), Region());
  unsetenv("LC_TIME");
  unsetenv("LANG");
}

}  // namespace
}  // namespace Hilalor
