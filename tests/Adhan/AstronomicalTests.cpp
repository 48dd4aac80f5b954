#include "Adhan/Astronomy/Astronomical.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/Adhan/Days.hpp"

namespace Adhan::Astronomical {
namespace {

TEST(Angle, UnwindsIntoOneTurnAndShiftsToTheNearerSide) {
  struct Case {
    double degrees, unwound, shifted;
  };
  const Case cases[] = {{0, 0, 0},         {-10, 350, -10},  {360, 0, 0},
                        {-180, 180, -180}, {180, 180, 180},  {190, 190, -170},
                        {540, 180, -180},  {-190, 170, 170}, {725.5, 5.5, 5.5}};
  for (const auto& [degrees, unwound, shifted] : cases) {
    SCOPED_TRACE(degrees);
    EXPECT_DOUBLE_EQ(Angle{degrees}.unwound().degrees, unwound);
    EXPECT_DOUBLE_EQ(Angle{degrees}.quadrantShifted().degrees, shifted);
  }
}

TEST(Astronomical, CountsJulianDays) {
  // From Meeus, table 7.A, as far as the Gregorian calendar goes.
  EXPECT_EQ(julianDay({2000, 1, 1, 12, 0, 0}), 2451545.0);
  EXPECT_EQ(julianDay(day(1999, 1, 1)), 2451179.5);
  EXPECT_EQ(julianDay({1987, 6, 19, 12, 0, 0}), 2446966.0);
  EXPECT_EQ(julianDay({1988, 1, 27, 0, 0, 59}), 2447187.5);
  EXPECT_EQ(julianDay(day(1600, 12, 31)), 2305812.5);
  EXPECT_EQ(julianDay({2000, std::nullopt, std::nullopt, 12, 0, 0}), 2451545.0);
  EXPECT_EQ(julianCentury(2451545.0), 0);
}

TEST(Astronomical, FindsTheSunOfTheTextbook) {
  // Meeus, example 25.a: 13 October 1992, 0h.
  const double T = julianCentury(2448908.5);
  const Angle longitude = meanSolarLongitude(T);
  EXPECT_NEAR(longitude.degrees, 201.80720, 1e-5);
  EXPECT_NEAR(meanSolarAnomaly(T).degrees, 278.99397, 1e-5);
  EXPECT_NEAR(solarEquationOfTheCenter(T, meanSolarAnomaly(T)).degrees, -1.89732, 1e-5);
  EXPECT_NEAR(apparentSolarLongitude(T, longitude).degrees, 199.90895, 2e-5);
  EXPECT_NEAR(meanObliquityOfTheEcliptic(T).degrees, 23.44023, 1e-5);
  const SolarCoordinates sun(2448908.5);
  EXPECT_NEAR(sun.rightAscension.degrees, 198.38083, 2e-5);
  EXPECT_NEAR(sun.declination.degrees, -7.78507, 2e-5);
}

TEST(Astronomical, FindsSiderealTimeAndNutationOfTheTextbook) {
  // Meeus, examples 12.a and 22.a: 10 April 1987, 0h. The short series of nutation is good to half
  // a second of arc in longitude and a tenth in obliquity.
  const double T = julianCentury(2446895.5);
  EXPECT_NEAR(meanSiderealTime(T).degrees, 197.693195, 1e-6);
  const Nutation sway =
      nutation(meanSolarLongitude(T), meanLunarLongitude(T), ascendingLunarNodeLongitude(T));
  EXPECT_NEAR(sway.inLongitude.degrees * 3600, -3.788, 0.5);
  EXPECT_NEAR(sway.inObliquity.degrees * 3600, 9.443, 0.1);
  EXPECT_NEAR(SolarCoordinates(2446895.5).apparentSiderealTime.degrees, 197.6922296, 2e-4);
}

TEST(Astronomical, InterpolatesAlsoThroughAFullTurn) {
  // Meeus, example 3.a.
  const auto mars = Interpolation::of({0.884226}, {0.877366}, {0.870531});
  EXPECT_NEAR(mars.at(4.35 / 24).degrees, 0.876125, 1e-6);
  const auto turning = Interpolation::ofTurning({359}, {0.5}, {2});
  EXPECT_DOUBLE_EQ(turning.at(0.5).degrees, 1.25);
  EXPECT_DOUBLE_EQ(turning.at(-1).degrees, -1);
}

TEST(Astronomical, FindsThePassageOfTheTextbook) {
  // Meeus, example 15.a: Venus over Boston on 20 March 1988.
  const auto position = [](double rightAscension, double declination) {
    SolarCoordinates venus(2447240.5);
    venus.rightAscension = {rightAscension};
    venus.declination = {declination};
    venus.apparentSiderealTime = {177.74208};
    return venus;
  };
  const Passage passage({42.3333, -71.0833},
                        SolarDay(position(40.68021, 18.04761), position(41.73129, 18.44092),
                                 position(42.78204, 18.82742)));
  constexpr double kTolerance = 24 * 2e-5;
  EXPECT_NEAR(passage.approximateTransit, 0.81965, 1e-5);
  EXPECT_NEAR(correctedTransit(passage), 24 * 0.81980, kTolerance);
  EXPECT_NEAR(correctedHourAngle(passage, Angle{-0.5667}, false), 24 * 0.51766, kTolerance);
  EXPECT_TRUE(std::isnan(correctedHourAngle(passage, Angle{80}, true)))
      << "it never stands that high";
}

TEST(Astronomical, CountsDaysFromTheSolsticeOfTheHemisphere) {
  struct Case {
    int dayOfYear, year;
    double latitude;
    int days;
  };
  const Case cases[] = {{1, 2025, 10, 11},     {354, 2025, 10, 364},  {355, 2025, 0, 0},
                        {356, 2025, 10, 1},    {355, 2024, 10, 365},  {356, 2024, 10, 0},
                        {366, 2024, 10, 10},   {1, 2024, -30, 194},   {172, 2025, -30, 0},
                        {171, 2025, -30, 364}, {172, 2024, -30, 365}, {173, 2024, -30, 0},
                        {59, 1900, -1, 252},   {59, 2000, -1, 252}};
  for (const auto& [dayOfYear, year, latitude, days] : cases) {
    SCOPED_TRACE(testing::Message() << dayOfYear << " of " << year << " at " << latitude);
    EXPECT_EQ(daysSinceSolstice(dayOfYear, year, latitude), days);
  }
}

TEST(Astronomical, StaysFiniteForFieldsAtTheEndOfTheirRange) {
  constexpr int kLeast = std::numeric_limits<int>::min();
  constexpr int kMost = std::numeric_limits<int>::max();
  for (const int extreme : {kLeast, kMost}) {
    for (const double julianDay : {julianDay(day(extreme, extreme, extreme)),
                                   julianDay({extreme, 1, 1, extreme, extreme, extreme})}) {
      EXPECT_TRUE(std::isfinite(SolarCoordinates(julianDay).declination.degrees));
    }
  }
}

}  // namespace
}  // namespace Adhan::Astronomical
