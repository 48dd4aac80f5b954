#include "rules/bar/MenuBarTitle.hpp"

#include <gmock/gmock.h>

#include <limits>

#include "tests/fakes/FakePlatform.hpp"
#include "tests/fakes/SystemTimeZone.hpp"

namespace Hilalor {
namespace {

// 2026-04-06 00:00 in Riyadh, where the machine and the effective location are.
constexpr Date kMidnight{1775422800};

class MenuBarTitleTest : public ::testing::Test {
 protected:
  [[nodiscard]] AppSettings& settings() { return desktop_.settings(); }

 private:
  SystemTimeZone zone_{"Asia/Riyadh"};
  FakePlatform desktop_;

 protected:
  PrayerCourse course_{desktop_.settings()};
};

TEST_F(MenuBarTitleTest, SunnahRowsDoNotCount) {
  const Date afterIsha = kMidnight + std::chrono::hours(22);
  const auto without = nextPrayerTitle(course_, afterIsha);
  EXPECT_TRUE(without.starts_with("Fajr ")) << without;
  settings().showSunnahTimes = true;
  EXPECT_EQ(nextPrayerTitle(course_, afterIsha), without);
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
    EXPECT_THAT(nextPrayerTitle(course_, kMidnight), title);
    settings().manualLatitude = 21.0;
    settings().manualLongitude = number;
    EXPECT_THAT(nextPrayerTitle(course_, kMidnight), title);
  }
}

}  // namespace
}  // namespace Hilalor
