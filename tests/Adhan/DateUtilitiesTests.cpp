#include "Adhan/Extensions/DateUtilities.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/Adhan/Days.hpp"

namespace Adhan {
namespace {

TEST(SettingHour, SplitsHoursWithAFraction) {
  struct Case {
    double value;
    int hour, minute, second;
  };
  const Case cases[] = {{0.5, 0, 30, 0},
                        {12.999999, 12, 59, 59},
                        {25.25, 25, 15, 0},
                        {-0.25, -1, 45, 0},
                        {-1.5, -2, 30, 0},
                        {1e-300, 0, 0, 0},
                        // The last bit falls short of the minute.
                        {std::nextafter(23.0 / 60, 0), 0, 23, -1}};
  for (const auto& [value, hour, minute, second] : cases) {
    SCOPED_TRACE(value);
    EXPECT_EQ(settingHour(day(2025, 3, 10), value),
              (DateComponents{2025, 3, 10, hour, minute, second}));
  }
}

TEST(SettingHour, HasNoResultForHoursThatAreNone) {
  for (const double value : {0.0, -0.0, std::nan(""), kInfinity, -kInfinity, 1e300, -1e300,
                             2147483648.0, std::numeric_limits<double>::denorm_min()}) {
    SCOPED_TRACE(value);
    EXPECT_EQ(settingHour(day(2025, 3, 10), value), std::nullopt);
  }
  for (const double value : {2147483646.99, -2147483646.99}) {
    EXPECT_NE(settingHour(day(2025, 3, 10), value), std::nullopt) << value;
  }
}

TEST(RoundedMinute, RoundsSecondsAfterDroppingTheirFraction) {
  struct Case {
    double second;  // after 12:34
    int nearest, up, none;
  };
  const Case cases[] = {{0, 0, 0, 0},      {0.9, 0, 0, 0},   {1, 0, 60, 1},
                        {29.9, 0, 60, 29}, {30, 60, 60, 30}, {59.999, 60, 60, 59}};
  for (const Date minute : {at(2025, 3, 10, 12, 34), at(1965, 3, 10, 12, 34), at(1, 1, 1, 12, 34),
                            at(2025, 12, 31, 23, 59)}) {
    for (const auto& [second, nearest, up, none] : cases) {
      const Date date = minute + Seconds(second);
      SCOPED_TRACE(date);
      EXPECT_EQ(roundedMinute(date, Rounding::nearest), minute + Seconds(nearest));
      EXPECT_EQ(roundedMinute(date, Rounding::up), minute + Seconds(up));
      EXPECT_EQ(roundedMinute(date, Rounding::none), minute + Seconds(none));
    }
  }
}

TEST(RoundedMinute, LeavesInstantsOutOfRangeAlone) {
  for (const Rounding rounding : allCases<Rounding>()) {
    for (const double seconds : {kInfinity, -kInfinity, 1e300, 1e17}) {
      EXPECT_EQ(roundedMinute({seconds}, rounding), Date{seconds}) << rounding;
    }
    EXPECT_TRUE(std::isnan(roundedMinute({std::nan("")}, rounding).secondsSince1970)) << rounding;
  }
}

}  // namespace
}  // namespace Adhan
