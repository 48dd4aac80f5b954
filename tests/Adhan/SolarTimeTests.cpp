#include "Adhan/Astronomy/SolarTime.hpp"

#include <gtest/gtest.h>

#include "tests/Adhan/Days.hpp"

namespace Adhan {
namespace {

constexpr Coordinates kHonolulu{21.3069, -157.8583};

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

TEST(SolarTime, LetsEventsFallOnTheNextDayInUTC) {
  const auto day = SolarTime::make(Adhan::day(2026, 11, 16), kHonolulu);
  ASSERT_TRUE(day);
  EXPECT_GT(day->sunset.hour, 24);
  EXPECT_EQ(gregorianUTC().components(gregorianUTC().date(day->sunset).value()).day, 17);
  EXPECT_LT(day->approxTransit, 1);
}

TEST(SolarTime, HasNoResultWithoutSunriseAndSunset) {
  constexpr Coordinates kFarNorth{80, 20};
  EXPECT_FALSE(SolarTime::make(day(2026, 6, 21), kFarNorth)) << "midnight sun";
  EXPECT_FALSE(SolarTime::make(day(2026, 12, 21), kFarNorth)) << "polar night";
  EXPECT_TRUE(SolarTime::make(day(2026, 9, 21), kFarNorth));
}

TEST(SolarTime, HasNoResultForAnAngleOutOfReach) {
  const auto midsummer = SolarTime::make(day(2026, 6, 21), {60, 20});
  ASSERT_TRUE(midsummer);
  EXPECT_TRUE(midsummer->timeForSolarAngle({-5}, false));
  EXPECT_FALSE(midsummer->timeForSolarAngle({-18}, false));
  EXPECT_FALSE(midsummer->timeForSolarAngle({60}, true));
}

}  // namespace
}  // namespace Adhan
