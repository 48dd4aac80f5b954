#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "Adhan/PrayerTimes.hpp"
#include "app/AppDelegate.hpp"
#include "app/PrayerTimesCalculator.hpp"
#include "tests/fakes/FakePlatform.hpp"
#include "tests/fakes/SystemTimeZone.hpp"

namespace Hilalor {
namespace {

// Sanitizers make every step dearer; they see the same code in fewer days.
#if defined(__SANITIZE_ADDRESS__)
constexpr int kDaysPerStay = 4;
#else
constexpr int kDaysPerStay = 73;
#endif

constexpr Date kNewYear{1767225600};  // 2026-01-01 00:00 UTC

// A stay of the user's somewhere, with the machine's clock set to some zone. The stays follow each
// other through the year and meet the changes of the clock in Cairo, Sydney and London.
struct Stay {
  double latitude;
  double longitude;
  const char* zone;
  const char* machineZone;
  PrayerCalculationMethod method;
};

constexpr Stay kStays[] = {
    {24.6877, 46.7219, "Asia/Riyadh", "Asia/Riyadh", PrayerCalculationMethod::ummAlQura},
    {30.0444, 31.2357, "Africa/Cairo", "Africa/Cairo", PrayerCalculationMethod::egyptian},
    {40.7128, -74.006, "America/New_York", "Asia/Tokyo", PrayerCalculationMethod::northAmerica},
    {-33.8688, 151.2093, "Australia/Sydney", "Australia/Sydney",
     PrayerCalculationMethod::muslimWorldLeague},
    {51.5074, -0.1278, "Europe/London", "Europe/London",
     PrayerCalculationMethod::moonsightingCommittee},
};

// What the title must say, found by another way than the program's: by walking the engine's times
// of whole days in UTC arithmetic.
class ExpectedTitle {
 public:
  explicit ExpectedTitle(const Stay& stay) : stay_(stay), zone_(*TimeZone::named(stay.zone)) {}

  [[nodiscard]] std::string at(Date now) {
    const auto day = static_cast<std::int64_t>(
        std::floor((now.secondsSince1970 + zone_.secondsFromUTC(now)) / 86400));
    for (const auto candidate : {day, day + 1}) {
      for (const auto& [name, time] : prayersOf(candidate)) {
        if (time > now) return name + " " + timeLeft(time - now);
      }
    }
    return "none";
  }

 private:
  using Prayers = std::vector<std::pair<std::string, Date>>;

  const Prayers& prayersOf(std::int64_t day) {
    auto& prayers = byDay_[day];
    if (!prayers.empty()) return prayers;
    const DateComponents epochDay{1970, 1, 1 + static_cast<int>(day), {}, {}, {}};
    const auto noon = Adhan::gregorianUTC().date(epochDay);
    auto date = Adhan::gregorianUTC().components(*noon);
    const auto times = Adhan::PrayerTimes::make({stay_.latitude, stay_.longitude}, date,
                                                Adhan::params(adhanMethod(stay_.method)));
    if (times) {
      prayers = {{"Fajr", times->fajr},
                 {"Dhuhr", times->dhuhr},
                 {"Asr", times->asr},
                 {"Maghrib", times->maghrib},
                 {"Isha", times->isha}};
    }
    return prayers;
  }

  static std::string timeLeft(Seconds left) {
    const int minutes = static_cast<int>(left.count() / 60);
    EXPECT_LT(minutes, 24 * 60);
    const std::string rest = std::to_string(minutes % 60) + "m";
    return minutes < 60 ? rest : std::to_string(minutes / 60) + "h " + rest;
  }

  Stay stay_;
  TimeZone zone_;
  std::map<std::int64_t, Prayers> byDay_;
};

void moveTo(const Stay& stay) {
  auto& settings = AppSettings::shared();
  settings.manualLatitude = stay.latitude;
  settings.manualLongitude = stay.longitude;
  settings.manualTimeZoneId = stay.zone;
  settings.calculationMethod = stay.method;
}

TEST(YearOfTicks, TheCountdownIsRightAtEveryTick) {
  SystemTimeZone machine("UTC");
  FakePlatform desktop(kNewYear);
  AppDelegate delegate;
  delegate.applicationDidFinishLaunching();
  AppSettings::shared().menuBarStyle = MenuBarStyle::nextPrayer;
  AppSettings::shared().locationMode = LocationMode::manual;
  desktop.statusBar.titles.reserve(8);

  int wrong = 0;
  for (const auto& stay : kStays) {
    SCOPED_TRACE(stay.zone);
    machine.set(stay.machineZone);
    moveTo(stay);
    ExpectedTitle expected(stay);
    for (int tick = 0; tick < kDaysPerStay * 2880 && wrong < 5; ++tick) {
      desktop.statusBar.titles.clear();
      desktop.loop.advance(Seconds(30));
      ASSERT_FALSE(desktop.statusBar.titles.empty());
      const auto now = desktop.loop.now();
      if (desktop.statusBar.title() == expected.at(now)) continue;
      ++wrong;
      ADD_FAILURE() << now << ": " << desktop.statusBar.title() << ", not " << expected.at(now);
    }
  }
}

}  // namespace
}  // namespace Hilalor
