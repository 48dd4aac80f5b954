#include "app/MenuBarTitle.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "app/PrayerTimesCalculator.hpp"
#include "tests/fakes/FakePlatform.hpp"
#include "tests/fakes/SystemTimeZone.hpp"

namespace Hilalor {
namespace {

// 2026-04-06 00:00 in Riyadh, where the machine and the effective location are.
constexpr Date kMidnight{1775422800};

class MenuBarTitleTest : public ::testing::Test {
 protected:
  [[nodiscard]] AppSettings& settings() { return AppSettings::shared(); }

  // The day's rows at the effective location.
  [[nodiscard]] std::vector<PrayerTime> schedule(Date day) {
    const auto place = settings().effectiveLocation();
    return PrayerTimesCalculator::calculate(day, place.latitude, place.longitude, place.timeZone,
                                            false);
  }

  [[nodiscard]] std::string titleBefore(const PrayerTime& row, Seconds span) {
    return nextPrayerTitle(settings(), row.time - span);
  }

 private:
  SystemTimeZone zone_{"Asia/Riyadh"};
  FakePlatform desktop_;
};

TEST_F(MenuBarTitleTest, CountsDownInWholeMinutes) {
  const auto dhuhr = schedule(kMidnight)[2];
  ASSERT_EQ(dhuhr.name, "Dhuhr");
  EXPECT_EQ(titleBefore(dhuhr, Seconds(1)), "Dhuhr 0m");
  EXPECT_EQ(titleBefore(dhuhr, Seconds(59.9)), "Dhuhr 0m");
  EXPECT_EQ(titleBefore(dhuhr, Seconds(60)), "Dhuhr 1m");
  EXPECT_EQ(titleBefore(dhuhr, Seconds(3599)), "Dhuhr 59m");
  EXPECT_EQ(titleBefore(dhuhr, Seconds(3600)), "Dhuhr 1h 0m");
  EXPECT_EQ(titleBefore(dhuhr, Seconds(7500)), "Dhuhr 2h 5m");
}

TEST_F(MenuBarTitleTest, ThePrayerReachedIsNoLongerNext) {
  const auto rows = schedule(kMidnight);
  EXPECT_TRUE(nextPrayerTitle(settings(), rows[0].time).starts_with("Dhuhr "));
  EXPECT_TRUE(nextPrayerTitle(settings(), rows[1].time).starts_with("Dhuhr "));
  EXPECT_TRUE(nextPrayerTitle(settings(), rows[2].time).starts_with("Asr "));
  EXPECT_TRUE(nextPrayerTitle(settings(), rows[3].time).starts_with("Maghrib "));
  EXPECT_TRUE(nextPrayerTitle(settings(), rows[4].time).starts_with("Isha "));
}

TEST_F(MenuBarTitleTest, AfterIshaItIsTomorrowsFajr) {
  const auto isha = schedule(kMidnight)[5];
  const auto tomorrowsFajr = schedule(kMidnight + std::chrono::hours(24))[0];
  const auto minutes = static_cast<int>((tomorrowsFajr.time - isha.time).count() / 60);
  EXPECT_EQ(nextPrayerTitle(settings(), isha.time),
            "Fajr " + std::to_string(minutes / 60) + "h " + std::to_string(minutes % 60) + "m");
}

TEST_F(MenuBarTitleTest, SunnahRowsDoNotCount) {
  const auto isha = schedule(kMidnight)[5];
  const auto without = nextPrayerTitle(settings(), isha.time);
  settings().showSunnahTimes = true;
  EXPECT_EQ(nextPrayerTitle(settings(), isha.time), without);
}

TEST_F(MenuBarTitleTest, APlaceWithoutASunHasTheMosqueAlone) {
  settings().locationMode = LocationMode::manual;
  settings().manualLatitude = 80.0;
  settings().manualLongitude = 10.0;
  const Date midsummer{1782000000};
  EXPECT_EQ(nextPrayerTitle(settings(), midsummer), "\U0001F54C");
}

TEST_F(MenuBarTitleTest, NonsensePlacesAreNoMoreThanThat) {
  settings().locationMode = LocationMode::manual;
  const auto title =
      ::testing::MatchesRegex("\U0001F54C|(Fajr|Dhuhr|Asr|Maghrib|Isha) ([0-9]+h )?[0-9]+m");
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  for (const double number : {kNaN, kInfinity, -kInfinity, 1e300, -1e300, 1e18, 720.0, 90.0}) {
    SCOPED_TRACE(number);
    settings().manualLatitude = number;
    settings().manualLongitude = 10.0;
    EXPECT_THAT(nextPrayerTitle(settings(), kMidnight), title);
    settings().manualLatitude = 21.0;
    settings().manualLongitude = number;
    EXPECT_THAT(nextPrayerTitle(settings(), kMidnight), title);
  }
}

TEST_F(MenuBarTitleTest, TheDateIsTheMachinesNotThePlaces) {
  settings().menuBarStyle = MenuBarStyle::date;
  EXPECT_EQ(menuBarTitle(settings(), kMidnight), "6 Apr");
  EXPECT_EQ(menuBarTitle(settings(), kMidnight - Seconds(1)), "5 Apr");
  settings().primaryCalendar = PrimaryCalendar::hijri;
  EXPECT_EQ(menuBarTitle(settings(), kMidnight), "18 Shaw.");
  const SystemTimeZone west("America/New_York");
  EXPECT_EQ(menuBarTitle(settings(), kMidnight), "17 Shaw.");
}

}  // namespace
}  // namespace Hilalor
