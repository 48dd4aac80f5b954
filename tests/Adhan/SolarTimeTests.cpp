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

TEST(SolarTime, FollowsItselfToTheLastBit) {
  for (const Coordinates& place : {kRiyadh, kHonolulu, Coordinates{-55, 179.9}}) {
    DateComponents date = day(2027, 12, 1);
    for (int step = 0; step < 800; ++step) {
      const auto today = SolarTime::make(date, place);
      date = gregorianUTC().dayAfter(date).value();
      const auto tomorrow = SolarTime::make(date, place);
      const auto following = today.value().following(date);
      ASSERT_TRUE(tomorrow && following) << date;
      ASSERT_EQ(following->solar, tomorrow->solar) << date;
      ASSERT_EQ(following->nextSolar, tomorrow->nextSolar) << date;
      ASSERT_EQ(following->approxTransit, tomorrow->approxTransit) << date;
      ASSERT_EQ(following->sunrise, tomorrow->sunrise) << date;
      ASSERT_EQ(following->sunset, tomorrow->sunset) << date;
    }
  }
}

TEST(SolarTime, DoesNotTakeAnotherDayForTheNext) {
  const auto today = SolarTime::make(day(2026, 11, 16), kRiyadh);
  for (const auto& other : {day(2026, 11, 16), day(2026, 11, 18), day(2026, 5, 17)}) {
    EXPECT_EQ(today.value().following(other).value().solar,
              SolarTime::make(other, kRiyadh).value().solar)
        << other;
  }
}

}  // namespace
}  // namespace Adhan
