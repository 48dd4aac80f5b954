#include "rules/calendar/HolidaysProvider.hpp"

#include <gmock/gmock.h>

#include "rules/calendar/CalendarModel.hpp"
#include "tests/datetime/Instants.hpp"
#include "tests/fakes/SystemTimeZone.hpp"

namespace Hilalor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Holiday kFitr{"Eid Al-Fitr", HolidayColor::teal};
const Holiday kAdha{"Eid Al-Adha", HolidayColor::teal};
const Holiday kNationalDay{"Saudi National Day", HolidayColor::green};
const Holiday kFoundingDay{"Saudi Founding Day", HolidayColor::green};

// Noon in Riyadh.
std::vector<Holiday> holidaysOn(int year, unsigned month, unsigned day) {
  return HolidaysProvider::holidays(utc(year, month, day, 9));
}

TEST(HolidaysProvider, MarksEachHolidayForItsOneDay) {
  const SystemTimeZone zone("Asia/Riyadh");
  EXPECT_THAT(holidaysOn(2025, 6, 5), IsEmpty());
  EXPECT_THAT(holidaysOn(2025, 6, 6), ElementsAre(kAdha));
  EXPECT_THAT(holidaysOn(2025, 6, 7), IsEmpty());
  EXPECT_THAT(holidaysOn(2025, 9, 23), ElementsAre(kNationalDay));
  EXPECT_THAT(holidaysOn(2025, 9, 22), IsEmpty());
  EXPECT_THAT(holidaysOn(1931, 2, 22), ElementsAre(kFoundingDay));
  EXPECT_THAT(holidaysOn(2025, 2, 23), IsEmpty());
}

TEST(HolidaysProvider, FollowsTheMachinesZone) {
  SystemTimeZone zone("Asia/Riyadh");
  const auto evening = utc(2025, 3, 29, 21, 30);
  EXPECT_THAT(HolidaysProvider::holidays(evening), ElementsAre(kFitr));
  zone.set("Europe/London");
  EXPECT_THAT(HolidaysProvider::holidays(evening), IsEmpty());
}

TEST(HolidaysProvider, PutsAnEidBeforeANationalDay) {
  const auto both = HolidaysProvider::holidays(fields(1501, 10, 1), fields(2078, 9, 23));
  EXPECT_THAT(both, ElementsAre(kFitr, kNationalDay));
  EXPECT_EQ(HolidaysProvider::label(both), "Eid Al-Fitr · Saudi National Day");
  EXPECT_EQ(HolidaysProvider::label({}), "");
}

TEST(HolidaysProvider, LabelsCellsUnlessHidden) {
  const SystemTimeZone zone("Asia/Riyadh");
  const CalendarModel model(utc(2025, 3, 10), PrimaryCalendar::gregorian);
  const auto labelsOf = [&](HolidayLabels labels) {
    std::vector<std::string> found;
    for (const auto& cell : model.page(Moment::at(utc(2025, 3, 10)), labels).cells)
      if (cell && !cell->holidayLabel.empty()) found.push_back(cell->holidayLabel);
    return found;
  };
  EXPECT_THAT(labelsOf(HolidayLabels::shown), ElementsAre("Eid Al-Fitr"));
  EXPECT_THAT(labelsOf(HolidayLabels::hidden), IsEmpty());
}

}  // namespace
}  // namespace Hilalor
