#include "datetime/Calendar.hpp"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "tests/datetime/Instants.hpp"
#include "tests/fakes/SystemTimeZone.hpp"

namespace Hilalor {
namespace {

using testing::Eq;
using testing::Optional;

Calendar calendarIn(const char* zone,
                    CalendarIdentifier identifier = CalendarIdentifier::gregorian) {
  return {identifier, TimeZone::named(zone).value()};
}

TEST(Calendar, GivesTheFieldsOfAnInstantInItsZone) {
  const auto instant = utc(2025, 3, 29, 21, 59, 59.9);
  const auto hijri = CalendarIdentifier::islamicUmmAlQura;
  EXPECT_EQ(calendarIn("UTC").components(instant), (DateComponents{2025, 3, 29, 21, 59, 59}));
  EXPECT_EQ(calendarIn("Asia/Beirut").components(instant),
            (DateComponents{2025, 3, 29, 23, 59, 59}));
  EXPECT_EQ(calendarIn("Asia/Beirut").components(utc(2025, 3, 29, 22)),
            (DateComponents{2025, 3, 30, 1, 0, 0}));
  EXPECT_EQ(calendarIn("Asia/Riyadh", hijri).components(instant),
            (DateComponents{1446, 10, 1, 0, 59, 59}));
  EXPECT_EQ(calendarIn("UTC", hijri).components(utc(1969, 12, 31, 23, 59, 59.5)),
            (DateComponents{1389, 10, 21, 23, 59, 59}));
}

TEST(Calendar, CarriesFieldsOutOfRangeAndFillsInAbsentOnes) {
  const auto calendar = calendarIn("UTC");
  const struct {
    DateComponents fields;
    Date instant;
  } cases[] = {
      {{2025, 1, 1, 25, -1, -1}, utc(2025, 1, 2, 0, 58, 59)},
      {{2025, 13, 32, 0, 0, 0}, utc(2026, 2, 1)},
      {{2025, 3, 0, 0, 0, 0}, utc(2025, 2, 28)},
      {{2024, 0, 1, 0, 0, 0}, utc(2023, 12, 1)},
      {{2025, std::nullopt, std::nullopt, std::nullopt, 5, std::nullopt}, utc(2025, 1, 1, 0, 5)},
  };
  for (const auto& test : cases)
    EXPECT_THAT(calendar.date(test.fields), Optional(Eq(test.instant))) << test.fields;
}

TEST(Calendar, BeginsADayWithoutMidnightWhenTheClockGoesOn) {
  const struct {
    const char* zone;
    DateComponents day;
    Date start;
  } cases[] = {{"Asia/Beirut", fields(2025, 3, 30), utc(2025, 3, 29, 22)},
               {"Africa/Cairo", fields(2025, 4, 25), utc(2025, 4, 24, 22)},
               {"America/Havana", fields(2025, 3, 9), utc(2025, 3, 9, 5)},
               {"America/Sao_Paulo", fields(2018, 11, 4), utc(2018, 11, 4, 3)},
               {"America/Santiago", fields(2025, 9, 7), utc(2025, 9, 7, 4)},
               {"America/Havana", fields(2025, 11, 2), utc(2025, 11, 2, 4)},
               // From 23:30 to 00:30.
               {"America/Toronto", fields(1919, 3, 31), utc(1919, 3, 31, 4, 30)}};
  for (const auto& test : cases) {
    SCOPED_TRACE(test.zone);
    const auto calendar = calendarIn(test.zone);
    EXPECT_THAT(calendar.date(test.day), Optional(Eq(test.start)));
    EXPECT_EQ(calendar.startOfDay(test.start + Seconds(3600 * 20)), test.start);
    EXPECT_EQ(calendar.startOfDay(test.start), test.start);
  }
}

TEST(Calendar, AddsUnitsAndStopsAtTheEndOfAShorterMonth) {
  const auto hijri = CalendarIdentifier::islamicUmmAlQura;
  const auto gregorian = CalendarIdentifier::gregorian;
  const struct {
    CalendarIdentifier calendar;
    CalendarUnit unit;
    int amount;
    DateComponents from;
    DateComponents to;
  } cases[] = {
      {gregorian, CalendarUnit::month, 1, fields(2025, 1, 31), fields(2025, 2, 28)},
      {gregorian, CalendarUnit::month, -1, fields(2024, 3, 31), fields(2024, 2, 29)},
      {gregorian, CalendarUnit::year, 1, fields(2024, 2, 29), fields(2025, 2, 28)},
      {gregorian, CalendarUnit::day, 365, fields(2024, 2, 29), fields(2025, 2, 28)},
      {hijri, CalendarUnit::month, -1, fields(1447, 1, 29), fields(1446, 12, 29)},
      {hijri, CalendarUnit::month, 1, fields(1445, 6, 30), fields(1445, 7, 29)},
      {hijri, CalendarUnit::month, -2, fields(1451, 2, 30), fields(1450, 12, 29)},
      {hijri, CalendarUnit::year, 50, fields(1450, 12, 29), fields(1500, 12, 29)},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.from);
    const auto calendar = calendarIn("Asia/Beirut", test.calendar);
    const auto from = calendar.date(test.from).value() + Seconds(3600 * 15.5);
    const auto to = calendar.adding(test.unit, test.amount, from);
    ASSERT_TRUE(to);
    const auto found = calendar.components(*to);
    EXPECT_EQ(fields(*found.year, *found.month, *found.day), test.to);
    EXPECT_EQ(found.hour, calendar.components(from).hour);
  }
}

TEST(Calendar, KeepsTheTimeOfDayAcrossAChangeOfClockAndFractions) {
  const auto calendar = calendarIn("Asia/Beirut");
  EXPECT_THAT(calendar.adding(CalendarUnit::day, 1, utc(2025, 3, 29, 12, 0, 0.25)),
              Optional(Eq(utc(2025, 3, 30, 11, 0, 0.25))));
  EXPECT_THAT(calendarIn("Pacific/Apia").adding(CalendarUnit::day, 1, utc(2011, 12, 29, 22)),
              Optional(Eq(utc(2011, 12, 30, 22))));
}

TEST(Calendar, CountsDaysOfMonthsAndYears) {
  const auto gregorian = calendarIn("Asia/Riyadh");
  EXPECT_THAT(gregorian.daysInMonth(utc(2100, 2, 10)), Optional(28));
  EXPECT_THAT(gregorian.daysInMonth(utc(2024, 1, 31, 22)), Optional(29));
  EXPECT_THAT(gregorian.ordinalDay(utc(2024, 12, 31)), Optional(366));
  EXPECT_EQ(gregorian.weekday(utc(2025, 3, 14)), 6);
  EXPECT_EQ(gregorian.weekday(utc(2025, 3, 14, 21)), 7);
  EXPECT_EQ(gregorian.weekday(utc(1969, 12, 31)), 4);
}

TEST(Calendar, ComparesMonthsByYearToo) {
  const auto calendar = calendarIn("Asia/Riyadh");
  EXPECT_TRUE(calendar.isSameMonth(utc(2025, 2, 28, 21), utc(2025, 3, 31, 20, 59)));
  EXPECT_FALSE(calendar.isSameMonth(utc(2025, 2, 28, 20, 59), utc(2025, 3, 1)));
  EXPECT_FALSE(calendar.isSameMonth(utc(2024, 3, 10), utc(2025, 3, 10)));
  EXPECT_FALSE(calendar.isSameMonth({std::nan("")}, {std::nan("")}));
}

TEST(Calendar, HasNoResultOutOfBounds) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const auto identifier :
       {CalendarIdentifier::gregorian, CalendarIdentifier::islamicUmmAlQura}) {
    const auto calendar = calendarIn("Asia/Riyadh", identifier);
    for (const double seconds : {std::nan(""), infinity, -infinity, 1e300, -1e13}) {
      SCOPED_TRACE(seconds);
      EXPECT_EQ(calendar.components({seconds}), DateComponents());
      EXPECT_EQ(calendar.adding(CalendarUnit::month, 1, {seconds}), std::nullopt);
      EXPECT_EQ(calendar.daysInMonth({seconds}), std::nullopt);
      EXPECT_EQ(calendar.ordinalDay({seconds}), std::nullopt);
    }
    constexpr int kMost = std::numeric_limits<int>::max();
    EXPECT_EQ(calendar.date(fields(kMost, kMost, kMost)), std::nullopt);
    EXPECT_EQ(calendar.adding(CalendarUnit::year, kMost, utc(2025, 1, 1)), std::nullopt);
  }
}

TEST(Calendar, FollowsTheMachinesZoneUnlessGivenItsOwn) {
  SystemTimeZone system("Asia/Riyadh");
  const Calendar following(CalendarIdentifier::gregorian);
  const auto fixed = calendarIn("UTC");
  const auto copy = following;
  system.set("America/New_York");
  EXPECT_EQ(following.components(utc(2025, 1, 1)).hour, 19);
  EXPECT_EQ(copy.timeZone().identifier(), "America/New_York");
  EXPECT_EQ(fixed.components(utc(2025, 1, 1)).hour, 0);
}

}  // namespace
}  // namespace Hilalor
