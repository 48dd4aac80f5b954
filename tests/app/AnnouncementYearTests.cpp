#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Adhan/Extensions/UTCCalendar.hpp"
#include "Adhan/PrayerTimes.hpp"
#include "app/PrayerNotificationManager.hpp"
#include "tests/fakes/FakeGeocoder.hpp"
#include "tests/fakes/FakeLocationService.hpp"
#include "tests/fakes/FakeNotificationCenter.hpp"
#include "tests/fakes/FakeSoundService.hpp"
#include "tests/fakes/InMemoryDefaultsStore.hpp"
#include "tests/fakes/SystemTimeZone.hpp"
#include "tests/fakes/VirtualLoop.hpp"

namespace Hilalor {
namespace {

constexpr Date kNewYear{1767225600};  // 2026-01-01 00:00 UTC
constexpr int kTicksADay = 2880;

// Sanitizers make every step dearer; they see the same code in fewer days.
#if defined(HILALOR_DECADE)
constexpr int kDays = 3653;
#elif defined(__SANITIZE_ADDRESS__)
constexpr int kDays = 20;
#else
constexpr int kDays = 365;
#endif

struct Home {
  const char* name;
  double latitude;
  double longitude;
  const char* zone;
  PrayerCalculationMethod method;
};

using Method = PrayerCalculationMethod;

constexpr std::array kHomes{
    // A year in these four,
    Home{"Riyadh", 24.6877, 46.7219, "Asia/Riyadh", Method::ummAlQura},
    Home{"London", 51.5074, -0.1278, "Europe/London", Method::moonsightingCommittee},
    Home{"Sydney", -33.8688, 151.2093, "Australia/Sydney", Method::muslimWorldLeague},
    Home{"ACoruna", 43.3713, -8.396, "Europe/Madrid", Method::muslimWorldLeague},
    // and ten years in all of them by hand.
    Home{"NewYork", 40.7128, -74.006, "America/New_York", Method::northAmerica},
    Home{"Cairo", 30.0444, 31.2357, "Africa/Cairo", Method::egyptian},
    Home{"Casablanca", 33.5731, -7.5898, "Africa/Casablanca", Method::muslimWorldLeague},
    Home{"Tehran", 35.6892, 51.389, "Asia/Tehran", Method::tehran},
    Home{"Kathmandu", 27.7172, 85.324, "Asia/Kathmandu", Method::karachi},
    Home{"Jakarta", -6.2088, 106.8456, "Asia/Jakarta", Method::singapore},
    Home{"Auckland", -36.8485, 174.7633, "Pacific/Auckland", Method::dubai},
    Home{"Tromso", 69.6492, 18.9553, "Europe/Oslo", Method::turkey},
    Home{"Honolulu", 21.3069, -157.8583, "Pacific/Honolulu", Method::kuwait},
};

#if defined(HILALOR_DECADE)
constexpr std::ptrdiff_t kPlaces = kHomes.size();
#else
constexpr std::ptrdiff_t kPlaces = 4;
#endif

void PrintTo(const Home& home, std::ostream* out) {
  *out << home.name;
}

/// A prayer and the minute it falls in, counted on the machine's local clock.
using Call = std::pair<std::string, std::int64_t>;

std::int64_t localMinute(Date date, const TimeZone& zone) {
  return static_cast<std::int64_t>(
      std::floor((date.secondsSince1970 + zone.secondsFromUTC(date)) / 60));
}

/// Which prayer falls due, by the engine's times of whole days and plain arithmetic.
class Muezzin {
 public:
  explicit Muezzin(const Home& home) : home_(home), zone_(*TimeZone::named(home.zone)) {}

  void callAt(Date now, const TimeZone& machine, std::map<Call, int>& calls) {
    const auto minute = localMinute(now, machine);
    for (const auto& [name, time] : prayersAround(localMinute(now, zone_) / (24 * 60))) {
      if (localMinute(time, machine) != minute) continue;
      // In the far north two prayers can fall in one minute, and both in an hour lived twice.
      Call call{name, minute};
      if (call != last_) ++calls[call];
      last_ = std::move(call);
      return;
    }
  }

 private:
  using Prayers = std::vector<std::pair<std::string, Date>>;

  // Of the day and then of the days beside it, for a prayer can fall after its own day's midnight;
  // but not once more what the day itself has within twelve hours, at the ends of the polar night.
  const Prayers& prayersAround(std::int64_t epochDay) {
    if (day_ == epochDay) return prayers_;
    day_ = epochDay;
    const auto own = prayersOf(epochDay);
    prayers_ = own;
    for (const auto beside : {epochDay - 1, epochDay + 1}) {
      for (const auto& [name, time] : prayersOf(beside)) {
        const bool isOwn = std::any_of(own.begin(), own.end(), [&](const auto& prayer) {
          return prayer.first == name && std::abs((prayer.second - time).count()) < 12 * 3600;
        });
        if (!isOwn) prayers_.emplace_back(name, time);
      }
    }
    return prayers_;
  }

  [[nodiscard]] Prayers prayersOf(std::int64_t epochDay) const {
    const DateComponents fields{1970, 1, 1 + static_cast<int>(epochDay), {}, {}, {}};
    const auto date = Adhan::gregorianUTC().components(*Adhan::gregorianUTC().date(fields));
    const auto times = Adhan::PrayerTimes::make({home_.latitude, home_.longitude}, date,
                                                Adhan::params(adhanMethod(home_.method)));
    if (!times) return {};
    return {{"Fajr", times->fajr},
            {"Dhuhr", times->dhuhr},
            {"Asr", times->asr},
            {"Maghrib", times->maghrib},
            {"Isha", times->isha}};
  }

  Home home_;
  TimeZone zone_;
  std::int64_t day_ = -1;
  Prayers prayers_;
  Call last_;
};

/// A user's days, tick by tick, with all that happens to clocks, zones and places.
class Life {
 public:
  explicit Life(const Home& home) : machineZone_(home.zone) {
    settings_.locationMode = LocationMode::manual;
    settings_.prayerNotificationsEnabled = true;
    settings_.athanEnabled = false;
    moveTo(home);
    announcements_ = manager_.activeAthanTitle.subscribe([this](const auto& title) {
      if (title) ++announced_[{title->substr(0, title->find(' ')), minuteNow()}];
    });
  }

  void live(int days, const Home& home) {
    const auto& abroad = home.name == kHomes[0].name ? kHomes[1] : kHomes[0];
    for (int day = 0; day < days; ++day) {
      switch (day % 73) {
        case 5:
          passDay(12);
          loop_.setClock(loop_.now() - std::chrono::hours(1));
          break;
        case 7:
          loop_.setClock(loop_.now() + std::chrono::hours(24));
          break;
        case 9:
          passDay(10);
          moveTo(abroad);
          break;
        case 11:
          machineZone_.set(abroad.zone);
          break;
        case 13:
          passDay(15);
          moveTo(home);
          machineZone_.set(home.zone);
          break;
        case 15:
        case 16:
          settings_.prayerNotificationsEnabled = day % 73 == 16;
          break;
        default:
          break;
      }
      passDay(24);
    }
  }

  void check() const {
    EXPECT_EQ(announced_.size(), expected_.size());
    int shown = 0;
    for (const auto& [call, times] : expected_) {
      const auto found = announced_.find(call);
      const int announced = found == announced_.end() ? 0 : found->second;
      if (announced == times || ++shown > 5) continue;
      ADD_FAILURE() << call.first << " at " << Date{60.0 * static_cast<double>(call.second)}
                    << " local: announced " << announced << " times";
    }
    for (const auto& [call, times] : announced_) {
      if (expected_.contains(call) || ++shown > 5) continue;
      ADD_FAILURE() << call.first << " at " << Date{60.0 * static_cast<double>(call.second)}
                    << " local: not due";
    }
  }

  [[nodiscard]] std::size_t announcements() const { return announced_.size(); }

 private:
  void moveTo(const Home& home) {
    settings_.manualLatitude = home.latitude;
    settings_.manualLongitude = home.longitude;
    settings_.manualTimeZoneId = std::string(home.zone);
    settings_.calculationMethod = home.method;
    muezzin_ = std::make_unique<Muezzin>(home);
  }

  void passDay(int hours) {
    for (int tick = 0; tick < kTicksADay * hours / 24; ++tick) {
      loop_.advance(Seconds(30));
      if (settings_.prayerNotificationsEnabled) {
        muezzin_->callAt(loop_.now(), TimeZone::current(), expected_);
      }
      manager_.checkAndNotify();
    }
  }

  [[nodiscard]] std::int64_t minuteNow() const {
    return localMinute(loop_.now(), TimeZone::current());
  }

  SystemTimeZone machineZone_;
  VirtualLoop loop_{kNewYear + Seconds(7.3)};
  FakeLocationService location_;
  FakeGeocoder geocoder_;
  LocationManager locationManager_{location_, geocoder_, loop_};
  InMemoryDefaultsStore store_;
  AppSettings settings_{store_, locationManager_};
  FakeNotificationCenter notifications_{loop_};
  FakeSoundService sounds_{loop_};
  PrayerNotificationManager manager_{settings_, loop_, loop_, notifications_, sounds_};
  std::unique_ptr<Muezzin> muezzin_;
  std::map<Call, int> expected_;
  std::map<Call, int> announced_;
  Subscription announcements_;
};

class AnnouncementYear : public testing::TestWithParam<Home> {};

TEST_P(AnnouncementYear, AnnouncesEveryPrayerMinuteOnceAndNothingElse) {
  Life life(GetParam());
  life.live(kDays, GetParam());
  life.check();
  RecordProperty("announcements", static_cast<int>(life.announcements()));
  EXPECT_GT(life.announcements(), 2U * kDays);
}

INSTANTIATE_TEST_SUITE_P(, AnnouncementYear,
                         testing::ValuesIn(kHomes.begin(), kHomes.begin() + kPlaces),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace
}  // namespace Hilalor
