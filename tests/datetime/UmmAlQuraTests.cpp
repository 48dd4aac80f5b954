#include "datetime/UmmAlQura.hpp"

#include <gtest/gtest.h>

#include <memory>

#include "datetime/Calendar.hpp"
#include "datetime/DateFormatter.hpp"
#include "tests/datetime/Instants.hpp"

namespace Hilalor {
namespace {

constexpr double kMillisecondsPerDay = 86'400'000;

std::unique_ptr<icu::Calendar> libraryCalendar() {
  UErrorCode status = U_ZERO_ERROR;
  return std::unique_ptr<icu::Calendar>(icu::Calendar::createInstance(
      *icu::TimeZone::getGMT(), icu::Locale("en_US@calendar=islamic-umalqura"), status));
}

TEST(UmmAlQura, AgreesWithTheLibraryWhereNoMonthsArePublished) {
  const auto calendar = libraryCalendar();
  const auto oracle = libraryCalendar();
  UmmAlQura months(*calendar);
  // From 1254 to 1641 AH, past both ends of the library's table, at all places of a month.
  for (std::int64_t day = -46'998; day < 90'000; day += 4) {
    if (day >= 21683 && day < 39402) continue;  // 14 May 2029 to 16 November 2077
    UErrorCode status = U_ZERO_ERROR;
    oracle->setTime(static_cast<double>(day) * kMillisecondsPerDay, status);
    const auto month = months.monthOf(day);
    ASSERT_TRUE(month) << day;
    ASSERT_EQ(month->year, oracle->get(UCAL_EXTENDED_YEAR, status)) << day;
    ASSERT_EQ(month->month, oracle->get(UCAL_MONTH, status) + 1) << day;
    ASSERT_EQ(day - month->firstDay + 1, oracle->get(UCAL_DATE, status)) << day;
    ASSERT_EQ(months.ordinalDay(day), oracle->get(UCAL_DAY_OF_YEAR, status)) << day;
    if (day % 20 != 0) continue;
    ASSERT_EQ(month->length, oracle->getActualMaximum(UCAL_DATE, status)) << day;
  }
}

// The table itself is held by the expected values.
TEST(UmmAlQura, CountsEveryDayOnceFromBeforeThePublishedYearsToAfterThem) {
  const Calendar hijri(CalendarIdentifier::islamicUmmAlQura, TimeZone::named("UTC").value());
  const DateFormatter formatter("yyyy-M-d 'd'", hijri);
  int day = 0;
  int month = 12;
  int year = 1449;
  for (auto date = utc(2028, 5, 25, 12); date < utc(2078, 11, 6); date = date + Seconds(86400)) {
    const auto fields = hijri.components(date);
    if (fields.day == 1) {
      ASSERT_TRUE(day == 29 || day == 30 || day == 0) << fields;
      year += month / 12;
      month = month % 12 + 1;
      day = 0;
    }
    ++day;
    ASSERT_EQ(fields, (DateComponents{year, month, day, 12, 0, 0})) << date;
    ASSERT_EQ(hijri.date(fields), date);
    ASSERT_EQ(formatter.string(date), std::to_string(year) + '-' + std::to_string(month) + '-' +
                                          std::to_string(day) + " d");
    ASSERT_EQ(hijri.adding(CalendarUnit::day, 1, date), date + Seconds(86400));
    ASSERT_GE(hijri.daysInMonth(date), day);
  }
  EXPECT_EQ(year, 1501);
}

// A calendar that is ahead is the table's of another day, but for weekdays and instants.
TEST(UmmAlQura, CanBeAheadOfItsTableByDays) {
  const auto zone = TimeZone::named("Asia/Riyadh").value();
  const Calendar table(CalendarIdentifier::islamicUmmAlQura, zone);
  const DateFormatter gregorian("EEEE", Calendar(CalendarIdentifier::gregorian, zone));
  for (const int ahead : {-2, -1, 0, 1, 2}) {
    const auto moved = table.withHijriAhead(ahead);
    const DateFormatter formatter("EEEE d MMMM yyyy", moved);
    // Years of ICU's table, and over the first of the published ones.
    for (auto date = utc(2028, 5, 1, 12); date < utc(2030, 5, 1); date = date + Seconds(86400)) {
      const Date like = date + Seconds(86400.0 * ahead);
      const auto fields = table.components(like);
      ASSERT_EQ(moved.components(date), fields) << ahead << ' ' << date;
      ASSERT_EQ(moved.date(fields), date);
      ASSERT_EQ(moved.daysInMonth(date), table.daysInMonth(like));
      ASSERT_EQ(moved.ordinalDay(date), table.ordinalDay(like));
      ASSERT_EQ(moved.adding(CalendarUnit::month, 5, date),
                *table.adding(CalendarUnit::month, 5, like) - Seconds(86400.0 * ahead));
      ASSERT_EQ(formatter.string(date),
                gregorian.string(date) + ' ' + DateFormatter("d MMMM yyyy", table).string(like));
    }
  }
}

}  // namespace
}  // namespace Hilalor
