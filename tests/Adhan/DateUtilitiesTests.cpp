#include "Adhan/Extensions/DateUtilities.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/Adhan/Days.hpp"

namespace Adhan {
namespace {

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
