#include "Adhan/Extensions/UTCCalendar.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "datetime/Calendar.hpp"
#include "tests/Adhan/Days.hpp"

namespace Adhan {
namespace {

constexpr double kYear1583 = -12212553600;  // the first whole year of the Gregorian calendar
constexpr double kYear4000 = 64060588800;

Hilalor::Calendar libraryCalendar() {
  return {Hilalor::CalendarIdentifier::gregorian, Hilalor::TimeZone::named("UTC").value()};
}

TEST(UTCCalendar, SplitsInstantsAsTheLibraryDoes) {
  const auto library = libraryCalendar();
  std::mt19937_64 random(1);
  std::uniform_real_distribution<double> instants(kYear1583, kYear4000);
  for (int round = 0; round < 20000; ++round) {
    const Date date{instants(random)};
    const auto fields = gregorianUTC().components(date);
    ASSERT_EQ(fields, library.components(date)) << date;
    ASSERT_EQ(gregorianUTC().ordinalDay(date), library.ordinalDay(date)) << date;
    ASSERT_EQ(gregorianUTC().date(fields), Date{std::floor(date.secondsSince1970)}) << date;
  }
}

TEST(UTCCalendar, CarriesFieldsOutOfRangeAsTheLibraryDoes) {
  const auto library = libraryCalendar();
  std::mt19937_64 random(2);
  const auto between = [&](int least, int most) {
    return std::uniform_int_distribution(least, most)(random);
  };
  for (int round = 0; round < 20000; ++round) {
    const DateComponents fields{between(1700, 3000), between(-30, 40),     between(-400, 400),
                                between(-100, 100),  between(-2000, 2000), between(-5000, 5000)};
    ASSERT_EQ(gregorianUTC().date(fields), library.date(fields)) << fields;
  }
}

TEST(UTCCalendar, ReadsAbsentFieldsAsTheFirst) {
  EXPECT_EQ(gregorianUTC().date(
                {1970, std::nullopt, std::nullopt, std::nullopt, std::nullopt, std::nullopt}),
            Date{0});
  EXPECT_EQ(gregorianUTC().date({}), gregorianUTC().date({1, 1, 1, 0, 0, 0}));
}

TEST(UTCCalendar, FollowsTheGregorianRuleBeforeItsTime) {
  EXPECT_EQ(gregorianUTC().dayAfter(day(1500, 2, 28)), day(1500, 3, 1));
  EXPECT_EQ(gregorianUTC().dayAfter(day(1582, 10, 4)), day(1582, 10, 5));
  EXPECT_EQ(gregorianUTC().dayAfter(day(0, 2, 28)), day(0, 2, 29));
  EXPECT_EQ(gregorianUTC().dayAfter(day(-1, 12, 31)), day(0, 1, 1));
  EXPECT_EQ(gregorianUTC().dayAfter({2024, 2, 28, 25, 0, 0}), day(2024, 3, 1)) << "from any hour";
}

TEST(UTCCalendar, HasNoResultOutOfRange) {
  for (const double seconds : {kInfinity, -kInfinity, std::nan(""), 1e300, -1e17}) {
    SCOPED_TRACE(seconds);
    EXPECT_EQ(gregorianUTC().components({seconds}), DateComponents{});
    EXPECT_EQ(gregorianUTC().ordinalDay({seconds}), std::nullopt);
  }
  for (const int extreme : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    SCOPED_TRACE(extreme);
    EXPECT_EQ(gregorianUTC().date(day(extreme, 1, 1)), std::nullopt);
    EXPECT_EQ(gregorianUTC().dayAfter(day(extreme, extreme, extreme)), std::nullopt);
    EXPECT_NE(gregorianUTC().date({1970, extreme, extreme, extreme, extreme, extreme}),
              std::nullopt);
  }
}

TEST(UTCCalendarDeathTest, StopsTheProgramWithoutUTC) {
  EXPECT_DEATH(UTCCalendar{std::nullopt}, "Unable to instantiate UTC TimeZone\\.");
}

}  // namespace
}  // namespace Adhan
