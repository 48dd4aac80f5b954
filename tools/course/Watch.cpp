#include "tools/course/Watch.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "datetime/DateFormatter.hpp"
#include "rules/bar/StatusBarController.hpp"
#include "rules/prayer/PrayerCourse.hpp"
#include "rules/prayer/PrayerList.hpp"
#include "rules/prayer/PrayerTimesCalculator.hpp"
#include "tests/fakes/FakePlatform.hpp"
#include "tests/fakes/SystemTimeZone.hpp"
#include "tools/Usage.hpp"
#include "tools/course/TrueCourse.hpp"

namespace Course {
namespace {

using namespace Hilalor;

constexpr double kTick = 30;
constexpr double kDay = 86400;
constexpr double kBefore = 75;               // ticks run that long before an event
constexpr double kAfter = 195;               // and after it: until the announcement's title is gone
constexpr double kSparse = 3600;             // between ticks far from everything
constexpr std::size_t kClockBackEvery = 41;  // announcements

/// A prayer that a title tells the time to.
struct Claim {
  std::string name;
  double minute = 0;
  friend auto operator<=>(const Claim&, const Claim&) = default;
};

std::optional<Claim> claimOf(const std::string& title, double now) {
  char name[16];
  int hours = 0;
  int minutes = 0;
  if (std::sscanf(title.c_str(), "%15s %dh %dm", name, &hours, &minutes) != 3) {
    hours = 0;
    if (std::sscanf(title.c_str(), "%15s %dm", name, &minutes) != 2) return std::nullopt;
  }
  // The only whole minute that is so far away.
  return Claim{name, std::ceil((now + 3600.0 * hours + 60.0 * minutes) / 60) * 60};
}

class Watcher {
 public:
  explicit Watcher(const Life& life) : life_(life), machine_(life.machineZone) {
    auto& settings = desktop_.settings();
    settings.locationMode = LocationMode::manual;
    settings.manualLatitude = life.home.latitude;
    settings.manualLongitude = life.home.longitude;
    settings.manualTimeZoneId = std::string(life.home.zone);
    settings.calculationMethod = life.method;
    settings.menuBarStyle = MenuBarStyle::nextPrayer;
    settings.prayerNotificationsEnabled = true;
    settings.notificationBannerEnabled = false;
    zone_ = TimeZone::named(life.home.zone);
    true_ = truePrayers({life.home.latitude, life.home.longitude},
                        PrayerTimesCalculator::parameters(settings), life.from - 3600, life.until);
    called_.resize(true_.size());
    controller_.emplace(desktop_.barContext(), nullptr);
    hearing_ = desktop_.notificationManager().activeAthanTitle.subscribe([this](const auto& title) {
      if (title) heard_ = title->substr(0, title->find(' '));
    });
    heard_.reset();
  }

  Tally run() {
    const double start = processorMicroseconds();
    for (double day = life_.from; day < life_.until; day += kDay)
      pass(day, std::min(day + kDay, life_.until));
    countMissed();
    tally_.processorSeconds = (processorMicroseconds() - start) / 1e6;
    return tally_;
  }

 private:
  void pass(double from, double until) {
    const auto centers = life_.everyTick ? std::vector<double>() : centersIn(from, until);
    auto center = centers.begin();
    for (double now = std::max(from, next_); now < until;) {
      tick(now + jitter_(random_));
      if (announcedNow_ && ++sinceClockBack_ % kClockBackEvery == 0) setClockBack(now);
      now += kTick;
      if (!life_.everyTick) {
        while (center != centers.end() && *center + kAfter < now)
          ++center;
        const double border = center == centers.end() ? until : *center - kBefore;
        if (border > now) now = std::min(std::ceil(border / kTick) * kTick, now + kSparse);
      }
      next_ = now;
    }
  }

  /// Where the ticks must be dense: what is true, what the program means to do, and where days and
  /// clocks change.
  std::vector<double> centersIn(double from, double until) {
    std::vector<double> centers;
    const auto near = [&](const TruePrayer& prayer, double instant) {
      return prayer.instant < instant;
    };
    for (auto prayer = std::lower_bound(true_.begin(), true_.end(), from - kDay, near);
         prayer != true_.end() && prayer->instant < until + kDay; ++prayer)
      centers.push_back(prayer->instant);
    for (const auto& prayer : course_.between({from - 600}, {until + kDay}))
      centers.push_back(prayer.time.secondsSince1970);
    for (const auto& zone : {*zone_, TimeZone::current()}) {
      const double offset = zone.secondsFromUTC({from});
      centers.push_back(std::ceil((from + offset) / kDay) * kDay - offset);
    }
    std::ranges::sort(centers);
    return centers;
  }

  void tick(double now) {
    announcedNow_ = false;
    auto& loop = desktop_.loop;
    desktop_.statusBar.titles.clear();
    // The timer comes round once in every such span of the loop, whatever the clock says.
    loop.setClock(Date{now} - Seconds(kTick));
    loop.advance(Seconds(kTick));
    ++tally_.ticks;
    if (heard_) hear(*std::exchange(heard_, std::nullopt), now);
    if (replaying_ || desktop_.statusBar.titles.empty()) return;
    const auto& title = desktop_.statusBar.title();
    if (title.ends_with("Athan")) return;
    const auto claim = claimOf(title, now);
    ++claims_[claim.value_or(Claim{"none", now})];
    if (tally_.ticks % life_.listEvery == 0) checkLists(claim, now);
  }

  /// The announcement must be what every title since the last one told of.
  void hear(const std::string& name, double now) {
    ++tally_.announced;
    announcedNow_ = true;
    const Claim come{name, std::floor(now / 60) * 60};
    for (const auto& [claim, ticks] : claims_) {
      const bool isNone =
          claim.name == "none" && civilDay(noonOf(come)) > civilDay(claim.minute) + 1;
      if (claim == come || isNone || replaying_) continue;
      tally_.wrongTitles += ticks;
      fault("title told " + claim.name, claim.minute);
    }
    claims_.clear();
    match(come);
  }

  void match(const Claim& come) {
    double nearest = 1e9;
    std::size_t found = true_.size();
    for (std::size_t index = first_; index < true_.size(); ++index) {
      const auto& prayer = true_[index];
      if (prayer.instant < come.minute - 3 * kDay) first_ = index;
      if (prayer.instant > come.minute + 2 * kDay) break;
      if (displayName(prayer.prayer) != come.name) continue;
      const double aside = std::abs(prayer.instant - come.minute);
      if (aside < nearest) std::tie(nearest, found) = std::pair(aside, index);
    }
    if (found == true_.size() || nearest > true_[found].tolerance) {
      // A day that the sky hardly gives may have prayers in the program and none here.
      if (isEdgeAround(come.minute)) return;
      ++tally_.extra;
      fault("called without cause: " + come.name, come.minute);
      return;
    }
    if (called_[found]++ > 0) {
      ++tally_.doubled;
      fault("called again: " + come.name, come.minute);
    }
    if (found < last_) {
      ++tally_.outOfOrder;
      fault("out of order: " + come.name, come.minute);
    }
    last_ = found;
    measure(true_[found], nearest);
  }

  void measure(const TruePrayer& prayer, double aside) {
    if (Sky::altitude(place(), prayer.noon) < 10) return;
    const bool isGrazing = prayer.tolerance > 900;
    auto& farthest = prayer.prayer == Adhan::Prayer::asr ? tally_.farthestAsr
                     : isGrazing                         ? tally_.farthestGrazing
                                                         : tally_.farthest;
    if (isGrazing || prayer.doubt == TruePrayer::Doubt::none)
      farthest = std::max(farthest, aside - 30);
  }

  [[nodiscard]] Sky::Place place() const { return {life_.home.latitude, life_.home.longitude}; }

  /// Whether the sun of the noons or midnights around hardly rises or sets.
  [[nodiscard]] bool isEdgeAround(double instant) const {
    for (double noon = instant - 2 * kDay; noon <= instant + 2 * kDay; noon += kDay / 2) {
      const double turn = Sky::noonNear(place(), noon);
      for (const double time : {turn, turn + kDay / 2}) {
        if (std::abs(Sky::altitude(place(), time) + 50.0 / 60) < 0.6) return true;
      }
    }
    return false;
  }

  void countMissed() {
    for (std::size_t index = 0; index < true_.size(); ++index) {
      const auto& prayer = true_[index];
      // The last may be called after the end.
      if (called_[index] > 0 || prayer.instant > life_.until - 3600 ||
          prayer.instant < life_.from + 3600)
        continue;
      switch (prayer.doubt) {
        case TruePrayer::Doubt::edge:
          ++tally_.leftAtEdge;
          break;
        case TruePrayer::Doubt::lowSun:
          ++tally_.leftAsr;
          break;
        case TruePrayer::Doubt::shortNight:
          ++tally_.leftInShortNight;
          break;
        case TruePrayer::Doubt::none:
          ++tally_.missed;
          fault("missed: " + std::string(displayName(prayer.prayer)), prayer.instant);
      }
    }
  }

  /// Yesterday's and today's lists at the place must mark the row of the title's prayer, if it is
  /// of one of these days, and dim what lies before it.
  void checkLists(const std::optional<Claim>& claim, double now) {
    ++tally_.marksSeen;
    std::vector<std::pair<std::string, std::string>> marked;
    bool isDimmedInOrder = true;
    for (const double ago : {kDay, 0.0}) {
      bool wasActive = false;
      for (const auto& row : prayerList(course_, Date{now - ago}, Date{now}).rows) {
        if (row.isActive) marked.emplace_back(displayName(row.listed), row.time);
        wasActive = wasActive || row.isActive;
        if (row.isActive && row.isPast) isDimmedInOrder = false;
        if (wasActive && row.isPast && row.listed != ListedTime::isha) isDimmedInOrder = false;
      }
    }
    std::vector<std::pair<std::string, std::string>> expected;
    if (claim && civilDay(noonOf(*claim)) <= civilDay(now)) {
      expected.emplace_back(claim->name, clock_.string(Date{claim->minute}));
    }
    if (marked == expected && isDimmedInOrder) return;
    ++tally_.wrongMarks;
    fault("rows marked beside the title's " + (claim ? claim->name : "none"), now);
  }

  [[nodiscard]] double noonOf(const Claim& claim) const {
    double noon = Sky::noonNear(place(), claim.minute);
    // Dhuhr is the noon nearest; the others lie before and after theirs.
    if (claim.name == "Fajr" && noon < claim.minute) noon += kDay;
    if (claim.name != "Fajr" && claim.name != "Dhuhr" && noon > claim.minute + 600) noon -= kDay;
    return noon;
  }

  [[nodiscard]] double civilDay(double instant) const {
    return std::floor((instant + zone_->secondsFromUTC({instant})) / kDay);
  }

  /// The hour to the last announcement once more, by a clock set back, in another zone.
  void setClockBack(double now) {
    replaying_ = true;
    machine_.set("Asia/Tokyo");
    for (double again = now - 3600; again <= now; again += kTick) {
      if (life_.everyTick || now - again < kAfter) tick(again);
    }
    machine_.set(life_.machineZone);
    replaying_ = false;
  }

  void fault(const std::string& what, double instant) {
    if (life_.saysAll) {
      std::printf("  %s: %s, %s local\n", life_.home.name, what.c_str(),
                  stamp_.string(Date{instant}).c_str());
    }
    if (tally_.firstFault[0] != '\0') return;
    std::snprintf(tally_.firstFault, sizeof tally_.firstFault, "%s, %s local", what.c_str(),
                  stamp_.string(Date{instant}).c_str());
  }

  Life life_;
  SystemTimeZone machine_;
  FakePlatform desktop_{Date{life_.from}};
  std::optional<TimeZone> zone_;
  PrayerCourse course_{desktop_.settings()};
  DateFormatter clock_{"hh:mm a",
                       Calendar(CalendarIdentifier::gregorian, *TimeZone::named(life_.home.zone))};
  DateFormatter stamp_{"yyyy-MM-dd HH:mm",
                       Calendar(CalendarIdentifier::gregorian, *TimeZone::named(life_.home.zone))};
  std::vector<TruePrayer> true_;
  std::vector<int> called_;
  std::optional<StatusBarController> controller_;
  Subscription hearing_;
  std::optional<std::string> heard_;
  std::map<Claim, long> claims_;
  Tally tally_;
  std::size_t first_ = 0;
  std::size_t last_ = 0;
  std::size_t sinceClockBack_ = 0;
  double next_ = 0;
  bool announcedNow_ = false;
  bool replaying_ = false;
  std::mt19937 random_{7};
  std::uniform_real_distribution<double> jitter_{0, 2.5};
};

}  // namespace

Tally watch(const Life& life) {
  return Watcher(life).run();
}

}  // namespace Course
