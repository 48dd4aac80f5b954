#include "datetime/UmmAlQura.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace Hilalor {
namespace {

constexpr double kMillisecondsPerDay = 86'400'000;

std::unique_ptr<icu::Calendar> libraryCalendar() {
  UErrorCode status = U_ZERO_ERROR;
  return std::unique_ptr<icu::Calendar>(icu::Calendar::createInstance(
      *icu::TimeZone::getGMT(), icu::Locale("en_US@calendar=islamic-umalqura"), status));
}

TEST(UmmAlQuraMonth, AgreesWithTheFieldsThatTheLibraryFinds) {
  const auto calendar = libraryCalendar();
  const auto oracle = libraryCalendar();
  // From 1302 to 1599 AH, at days that fall on all places of a month.
  for (std::int64_t day = -31'000; day < 74'400; day += 5) {
    UErrorCode status = U_ZERO_ERROR;
    oracle->setTime(static_cast<double>(day) * kMillisecondsPerDay, status);
    const auto month = ummAlQuraMonth(*calendar, day);
    ASSERT_TRUE(month) << day;
    ASSERT_EQ(month->year, oracle->get(UCAL_EXTENDED_YEAR, status)) << day;
    ASSERT_EQ(month->month, oracle->get(UCAL_MONTH, status) + 1) << day;
    ASSERT_EQ(day - month->firstDay + 1, oracle->get(UCAL_DATE, status)) << day;
    if (day % 25 != 0) continue;
    ASSERT_EQ(month->length, oracle->getActualMaximum(UCAL_DATE, status)) << day;
  }
}

TEST(UmmAlQuraMonth, EndsWithTheTable) {
  const auto calendar = libraryCalendar();
  const std::int64_t days[] = {-1'000'000'000'000, -40'000, -31'827, 74'839, 1'000'000'000'000};
  for (const auto day : days)
    EXPECT_FALSE(ummAlQuraMonth(*calendar, day)) << day;
}

}  // namespace
}  // namespace Hilalor
