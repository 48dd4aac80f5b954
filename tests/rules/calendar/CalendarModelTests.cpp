#include "rules/calendar/CalendarModel.hpp"

#include <gmock/gmock.h>

#include <cmath>
#include <ctime>
#include <string>

#include "tests/datetime/Instants.hpp"
#include "tests/fakes/SystemRegion.hpp"
#include "tests/fakes/SystemTimeZone.hpp"

namespace Hilalor {
namespace {

using testing::Eq;
using testing::Optional;

CalendarModel gregorianModel(Date date) {
  return {date, PrimaryCalendar::gregorian};
}

CalendarModel hijriModel(Date date) {
  return {date, PrimaryCalendar::hijri};
}

TEST(CalendarModel, LaysTheMonthOutFromTheRegionsFirstWeekday) {
  const SystemTimeZone zone("Asia/Riyadh");
  const struct {
    const char* region;
    Date date;
    int leading;
    int last;
  } cases[] = {{"en_US", utc(2025, 6, 10), 0, 30},  // 1 June 2025 is a Sunday
               {"de_DE", utc(2025, 6, 10), 6, 30},
               {"dv_MV", utc(2024, 2, 10), 6, 29}};
  for (const auto& test : cases) {
    SCOPED_TRACE(test.region);
    const SystemRegion region(test.region);
    const auto days = gregorianModel(test.date).days();
    ASSERT_EQ(days.size(), 42U);
    for (int index = 0; index < 42; ++index) {
      const int day = index - test.leading + 1;
      const bool inMonth = day >= 1 && day <= test.last;
      EXPECT_EQ(days[static_cast<std::size_t>(index)], inMonth ? std::optional(day) : std::nullopt);
    }
  }
}

TEST(CalendarModel, KnowsTodayOnlyInItsOwnMonth) {
  const SystemTimeZone zone("Asia/Riyadh");
  const auto march = gregorianModel(utc(2025, 3, 10));
  EXPECT_THAT(march.todayDay(utc(2025, 2, 28, 21)), Optional(1));
  EXPECT_THAT(march.todayDay(utc(2025, 3, 31, 20, 59)), Optional(31));
  EXPECT_EQ(march.todayDay(utc(2025, 3, 31, 21)), std::nullopt);
  EXPECT_EQ(march.todayDay(utc(2024, 3, 10)), std::nullopt);
  EXPECT_THAT(hijriModel(utc(2025, 3, 10)).todayDay(utc(2025, 3, 29, 20)), Optional(29));
  const auto now = Moment::at(utc(2025, 3, 9, 21));
  for (const auto& cell : march.page(now, HolidayLabels::shown).cells) {
    if (!cell) continue;
    EXPECT_EQ(cell->isToday, cell->day == 10);
    EXPECT_EQ(cell->isWeekend, Calendar::ofUser(now).isWeekend(cell->date));
  }
}

TEST(CalendarModel, MovesByMonthsAndYearsOfItsOwnCalendar) {
  const SystemTimeZone zone("Asia/Riyadh");
  const auto january = gregorianModel(utc(2024, 1, 31, 12));
  EXPECT_EQ(january.nextMonth().displayDate, utc(2024, 2, 29, 12));
  EXPECT_EQ(january.previousMonth().displayDate, utc(2023, 12, 31, 12));
  EXPECT_EQ(january.nextYear().displayDate, utc(2025, 1, 31, 12));
  const auto ramadan = hijriModel(utc(2025, 3, 10, 12));
  EXPECT_EQ(ramadan.nextYear().monthName(), "Ramadan");
  EXPECT_THAT(ramadan.nextYear().date(1), Optional(Eq(utc(2026, 2, 17, 21))));
  EXPECT_THAT(ramadan.previousYear().date(1), Optional(Eq(utc(2024, 3, 10, 21))));
  EXPECT_EQ(ramadan.nextYear().primaryCalendar, PrimaryCalendar::hijri);
}

TEST(CalendarModel, HasNoCellsForWhatIsNoInstant) {
  for (const double seconds : {std::nan(""), 1e300}) {
    const auto model = gregorianModel({seconds});
    EXPECT_THAT(model.days(), testing::IsEmpty());
    EXPECT_EQ(model.date(1), std::nullopt);
    EXPECT_EQ(model.secondaryDay(1), "");
    EXPECT_EQ(model.secondaryMonthName(1), "");
    EXPECT_EQ(model.secondaryMonthHeader(), "");
    EXPECT_TRUE(std::isnan(seconds) || model.nextMonth().displayDate == Date{seconds});
    EXPECT_THAT(model.page(Moment::at(utc(2025, 3, 1)), HolidayLabels::shown).cells,
                testing::IsEmpty());
  }
}

// The Gregorian day as the C library has it.
std::tm localDay(Date date) {
  const auto time = static_cast<std::time_t>(date.secondsSince1970);
  std::tm local{};
  localtime_r(&time, &local);
  return local;
}

void expectWholeGrid(const CalendarModel& model, int count) {
  const auto first = localDay(model.date(1).value());
  for (int firstWeekday = 1; firstWeekday <= 7; ++firstWeekday) {
    const auto days = model.days(firstWeekday);
    ASSERT_EQ(days.size(), 42U);
    const auto leading = static_cast<std::size_t>((first.tm_wday + 1 - firstWeekday + 7) % 7);
    ASSERT_EQ(days.at(leading), 1);
    ASSERT_EQ(days.at(leading + static_cast<std::size_t>(count) - 1), count);
    ASSERT_EQ(std::count(days.begin(), days.end(), std::nullopt), 42 - count);
  }
}

void expectConsecutiveDays(const CalendarModel& model, int count) {
  auto before = localDay(model.date(1).value() - Seconds(1));
  for (int day = 1; day <= count; ++day) {
    const auto start = model.date(day).value();
    const auto local = localDay(start);
    const auto moment = localDay(start - Seconds(1));
    ASSERT_EQ(local.tm_wday, (before.tm_wday + 1) % 7) << start;
    ASSERT_EQ(moment.tm_yday, before.tm_yday) << start;
    const auto gregorianDay = model.primaryCalendar == PrimaryCalendar::gregorian
                                  ? std::to_string(day)
                                  : model.secondaryDay(day);
    ASSERT_EQ(gregorianDay, std::to_string(local.tm_mday)) << start;
    before = local;
  }
}

// Every month of two centuries, in zones whose clocks change at midnight.
TEST(CalendarModel, HoldsTogetherInEveryMonth) {
  for (const char* name :
       {"Asia/Beirut", "Africa/Cairo", "America/Havana", "America/Sao_Paulo", "America/Santiago"}) {
    SCOPED_TRACE(name);
    const SystemTimeZone zone(name);
    tzset();
    for (const auto primary : {PrimaryCalendar::gregorian, PrimaryCalendar::hijri}) {
      for (CalendarModel model(utc(1900, 1, 1, 12), primary);
           model.displayDate < utc(2101, 1, 1) && !testing::Test::HasFatalFailure();
           model = model.nextMonth()) {
        SCOPED_TRACE(model.displayDate);
        const auto start = model.date(1).value();
        const auto next = model.nextMonth();
        const auto length = next.date(1).value() - start;
        const int count = static_cast<int>(std::lround(length.count() / 86400));
        expectWholeGrid(model, count);
        expectConsecutiveDays(model, count);
        EXPECT_EQ(next.previousMonth().date(1), start);
      }
    }
  }
}

}  // namespace
}  // namespace Hilalor
