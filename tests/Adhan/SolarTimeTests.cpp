#include "Adhan/Astronomy/SolarTime.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "Adhan/Astronomy/Astronomical.hpp"
#include "tests/Adhan/Days.hpp"

// The figures themselves are held by the rows of tests/golden, from the angle to the whole day.
namespace Adhan {
namespace {

TEST(SolarTime, ReadsOnlyTheDayAndKeepsItsSeconds) {
  const auto plain = SolarTime::make(day(2026, 11, 16), kRiyadh);
  const auto afternoon = SolarTime::make({2026, 11, 16, 15, 40, 7}, kRiyadh);
  ASSERT_TRUE(plain && afternoon);
  EXPECT_EQ(afternoon->date, (DateComponents{2026, 11, 16, 0, 0, 7}));
  EXPECT_EQ(afternoon->transit, plain->transit);
  EXPECT_EQ(afternoon->sunrise, plain->sunrise);
  EXPECT_EQ(afternoon->sunset, plain->sunset);
  EXPECT_EQ(afternoon->approxTransit, plain->approxTransit);
}

TEST(SolarCoordinates, StayFiniteForFieldsAtTheEndOfTheirRange) {
  using Astronomical::julianDay;
  for (const int extreme : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    for (const double number : {julianDay(day(extreme, extreme, extreme)),
                                julianDay({extreme, 1, 1, extreme, extreme, extreme})})
      EXPECT_TRUE(std::isfinite(SolarCoordinates(number).declination.degrees));
  }
}

}  // namespace
}  // namespace Adhan
