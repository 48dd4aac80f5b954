#include "rules/calendar/DayTexts.hpp"

#include <gtest/gtest.h>

#include "tests/fakes/SystemTimeZone.hpp"

namespace Hilalor {
namespace {

DayCell day() {
  // The start of 22 February 2026 in Riyadh.
  DayCell cell;
  cell.date = {1771707600};
  return cell;
}

TEST(HoverLabel, NamesTheNewMonthAndTheHolidays) {
  struct Case {
    const char* month;
    const char* holiday;
    SecondaryCalendar secondary;
    const char* label;
  };
  const Case cases[] = {
      {"", "", SecondaryCalendar::shown, ""},
      {"Shawwal 1447", "", SecondaryCalendar::shown, "Shawwal 1447"},
      {"Shawwal 1447", "", SecondaryCalendar::hidden, ""},
      {"", "Eid Al-Fitr", SecondaryCalendar::shown, "Eid Al-Fitr"},
      {"Shawwal 1447", "Eid Al-Fitr", SecondaryCalendar::shown, "Shawwal 1447 · Eid Al-Fitr"},
      {"Shawwal 1447", "Eid Al-Fitr", SecondaryCalendar::hidden, "Eid Al-Fitr"},
  };
  for (const auto& [month, holiday, secondary, label] : cases) {
    SCOPED_TRACE(label);
    DayCell cell = day();
    cell.secondaryMonthName = month;
    cell.holidayLabel = holiday;
    EXPECT_EQ(hoverLabel(cell, secondary), label);
  }
}

TEST(DaySpeech, SaysTheDateInBothCalendarsAndWhatMarksTheDay) {
  const SystemTimeZone zone("Asia/Riyadh");
  const DaySpeech speech{Calendar(CalendarIdentifier::islamicUmmAlQura)};
  DayCell cell = day();
  EXPECT_EQ(speech.of(cell, ""), "Sunday, 22 February 2026, 5 Ramadan 1447");
  cell.isToday = true;
  cell.holidayLabel = "Saudi Founding Day";
  EXPECT_EQ(speech.of(cell, "call home"),
            "Sunday, 22 February 2026, 5 Ramadan 1447, today, Saudi Founding Day, note: call home");
}

}  // namespace
}  // namespace Hilalor
