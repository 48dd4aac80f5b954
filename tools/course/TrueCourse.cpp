#include "tools/course/TrueCourse.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include "Adhan/Astronomy/SeasonalTwilight.hpp"
#include "Adhan/Extensions/UTCCalendar.hpp"

namespace Course {
namespace {

using Adhan::CalculationParameters;
using Adhan::Prayer;
using Doubt = TruePrayer::Doubt;

constexpr double kHorizon = -50.0 / 60;
constexpr double kDay = 86400;
constexpr double kRadian = std::numbers::pi / 180;

// The engine finds a day's events in one step from its noon, and Asr from the sun of 0h UTC: so
// many degrees of altitude may its answers be wrong.
constexpr double kEventDegrees = 0.1;
constexpr double kAsrDegrees = 0.5;
constexpr double kRounding = 90;  // seconds
// How near to the horizon the sun of noon or midnight makes it doubtful whether it rises or sets.
constexpr double kEdgeDegrees = 0.6;
constexpr double kLowSunDegrees = 3;
// How near to its angle midnight's sun makes a twilight doubtful, and by how much.
constexpr double kGrazingDegrees = 1;
constexpr double kGrazingTolerance = 3 * 3600;

struct Day {
  double noon;
  double midnightBefore;
  double midnightAfter;
  std::optional<double> sunrise;
  std::optional<double> sunset;
  bool isEdge = false;
};

Day dayAt(const Sky::Place& place, double meanNoon) {
  Day day{};
  day.noon = Sky::noonNear(place, meanNoon);
  day.midnightBefore = day.noon - kDay / 2;
  day.midnightAfter = day.noon + kDay / 2;
  day.sunrise = Sky::passage(place, kHorizon, day.midnightBefore, day.noon);
  day.sunset = Sky::passage(place, kHorizon, day.noon, day.midnightAfter);
  for (const double turn : {day.midnightBefore, day.noon, day.midnightAfter}) {
    if (std::abs(Sky::altitude(place, turn) - kHorizon) < kEdgeDegrees) day.isEdge = true;
  }
  return day;
}

/// How many seconds the sun takes for so many degrees about an instant, at the most.
double slack(const Sky::Place& place, double degrees, double wanted, double from, double until) {
  const auto at = Sky::passage(place, wanted, from, until);
  double most = 0;
  for (const double aside : {-degrees, degrees}) {
    const auto moved = Sky::passage(place, wanted + aside, from, until);
    most = std::max(most, at && moved ? std::abs(*moved - *at) : 3600.0);
  }
  return most;
}

struct Rules {
  const Sky::Place& place;
  const CalculationParameters& parameters;
  const Day& day;
  double night;

  [[nodiscard]] Adhan::Season season() const {
    const Adhan::Date date{day.noon};
    const auto& calendar = Adhan::gregorianUTC();
    return {place.latitude, *calendar.ordinalDay(date), *calendar.components(date).year};
  }

  [[nodiscard]] bool goesBySeason() const {
    return parameters.method == Adhan::CalculationMethod::moonsightingCommittee;
  }

  [[nodiscard]] double fajr() const {
    const auto portion = parameters.nightPortions({place.latitude, place.longitude}).fajr * night;
    const double earliest =
        *day.sunrise +
        (goesBySeason() ? Adhan::seasonalMorningTwilight(season()).count() : -portion);
    if (goesBySeason() && place.latitude >= 55) return std::max(earliest, *day.sunrise - night / 7);
    const auto dawn = Sky::passage(place, -parameters.fajrAngle, day.midnightBefore, *day.sunrise);
    return dawn ? std::max(earliest, *dawn) : earliest;
  }

  [[nodiscard]] double isha() const {
    if (parameters.ishaInterval > 0) return *day.sunset + parameters.ishaInterval * 60;
    const auto portion = parameters.nightPortions({place.latitude, place.longitude}).isha * night;
    const double latest =
        *day.sunset + (goesBySeason()
                           ? Adhan::seasonalEveningTwilight(season(), parameters.shafaq).count()
                           : portion);
    if (goesBySeason() && place.latitude >= 55) return std::min(latest, *day.sunset + night / 7);
    const auto dark = Sky::passage(place, -parameters.ishaAngle, *day.sunset, day.midnightAfter);
    return dark ? std::min(latest, *dark) : latest;
  }

  /// On nights whose darkest moment hardly reaches the angle, its passage is hard to tell.
  [[nodiscard]] double grazing(double angle, double midnight) const {
    const bool isGrazing = std::abs(Sky::altitude(place, midnight) + angle) < kGrazingDegrees;
    return isGrazing ? kGrazingTolerance : 0;
  }

  [[nodiscard]] bool grazesIsha() const {
    return grazing(parameters.ishaAngle, day.midnightAfter) > 0;
  }

  /// Where dusk and Isha are that near to each other, Maghrib is either dusk or sunset; where the
  /// night hardly reaches dusk, anything between.
  [[nodiscard]] double maghribInDoubt() const {
    if (!parameters.maghribAngle) return 0;
    const auto dusk =
        Sky::passage(place, -*parameters.maghribAngle, *day.sunset, day.midnightAfter);
    if (grazing(*parameters.maghribAngle, day.midnightAfter) > 0)
      return dusk.value_or(day.midnightAfter) - *day.sunset;
    const bool isNear = dusk && std::abs(*dusk - isha()) < 2 * kRounding;
    return isNear || (dusk && grazesIsha()) ? *dusk - *day.sunset : 0;
  }

  [[nodiscard]] double maghrib() const {
    if (!parameters.maghribAngle) return *day.sunset;
    const auto dusk =
        Sky::passage(place, -*parameters.maghribAngle, *day.sunset, day.midnightAfter);
    return dusk && *dusk < isha() ? *dusk : *day.sunset;
  }

  [[nodiscard]] double asrAltitude() const {
    const double fromZenith = std::abs(place.latitude - Sky::declination(day.noon));
    return std::atan(1 / (1 + std::tan(fromZenith * kRadian))) / kRadian;
  }
};

double minutes(const CalculationParameters& parameters, int Adhan::PrayerAdjustments::*prayer) {
  return 60 * (parameters.methodAdjustments.*prayer) +
         (parameters.rounding == Adhan::Rounding::up ? 30 : 0);
}

void addDay(const Rules& rules, bool isEdge, std::vector<TruePrayer>& prayers) {
  const auto& [place, parameters, day, night] = rules;
  const double rise = slack(place, kEventDegrees, kHorizon, day.midnightBefore, day.noon);
  const double set = slack(place, kEventDegrees, kHorizon, day.noon, day.midnightAfter);
  const auto doubt = isEdge ? Doubt::edge : Doubt::none;
  const auto add = [&, noon = day.noon](Prayer prayer, double instant,
                                        int Adhan::PrayerAdjustments::*own, double tolerance,
                                        Doubt why) {
    prayers.push_back({prayer, instant + minutes(rules.parameters, own), kRounding + tolerance,
                       noon, doubt == Doubt::edge ? doubt : why});
  };
  using Minutes = Adhan::PrayerAdjustments;
  add(Prayer::fajr, rules.fajr(), &Minutes::fajr,
      2 * rise + set + rules.grazing(parameters.fajrAngle, day.midnightBefore), Doubt::none);
  add(Prayer::dhuhr, day.noon, &Minutes::dhuhr, 0, Doubt::none);
  const double low = rules.asrAltitude();
  const auto asr = Sky::passage(place, low, day.noon, day.midnightAfter);
  const bool isLow = Sky::altitude(place, day.noon) < kLowSunDegrees;
  if (asr) {
    add(Prayer::asr, *asr, &Minutes::asr,
        isLow ? rules.maghrib() + 600 - day.noon
              : slack(place, kAsrDegrees, low, day.noon, day.midnightAfter),
        isLow ? Doubt::lowSun : Doubt::none);
  }
  add(Prayer::maghrib, rules.maghrib(), &Minutes::maghrib, 2 * set + rules.maghribInDoubt(),
      Doubt::none);
  const bool isShort =
      rules.isha() < rules.maghrib() + minutes(parameters, &Minutes::maghrib) + 120;
  add(Prayer::isha, rules.isha(), &Minutes::isha,
      rise + 2 * set + rules.grazing(parameters.ishaAngle, day.midnightAfter),
      isShort || rules.grazesIsha() ? Doubt::shortNight : Doubt::none);
}

/// A Fajr that comes before the evening's Maghrib is none (minutes counted back from sunrise, where
/// nights are shorter); where the two are near each other it may or may not be.
void leaveOutEarlyDawns(std::vector<TruePrayer>& prayers) {
  std::vector<TruePrayer> kept;
  std::optional<TruePrayer> maghrib;
  for (TruePrayer prayer : prayers) {
    if (prayer.prayer == Prayer::maghrib) maghrib = prayer;
    const bool isOfNight = maghrib && prayer.noon - maghrib->noon < 1.5 * kDay;
    if (prayer.prayer == Prayer::fajr && isOfNight) {
      const double before = maghrib->instant - prayer.instant;
      const double doubtful = prayer.tolerance + maghrib->tolerance;
      if (before > doubtful) continue;
      if (before > -120 && prayer.doubt == Doubt::none) prayer.doubt = Doubt::shortNight;
    }
    kept.push_back(prayer);
  }
  prayers = std::move(kept);
}

/// Isha does not outlast its night; where the two are near each other it may or may not be.
void endNights(std::vector<TruePrayer>& prayers) {
  std::vector<TruePrayer> kept;
  for (std::size_t index = 0; index < prayers.size(); ++index) {
    TruePrayer prayer = prayers[index];
    const bool hasNext = prayer.prayer == Prayer::isha && index + 1 < prayers.size() &&
                         prayers[index + 1].noon - prayer.noon < 1.5 * kDay;
    if (hasNext) {
      const double after = prayer.instant - prayers[index + 1].instant;
      const double doubtful = prayer.tolerance + prayers[index + 1].tolerance;
      const bool isNextSure = prayers[index + 1].doubt != Doubt::shortNight;
      if (after > doubtful && isNextSure) continue;
      if (after > -doubtful && prayer.doubt == Doubt::none) prayer.doubt = Doubt::shortNight;
    }
    kept.push_back(prayer);
  }
  prayers = std::move(kept);
}

}  // namespace

std::vector<TruePrayer> truePrayers(const Sky::Place& place,
                                    const CalculationParameters& parameters, double from,
                                    double until) {
  std::vector<TruePrayer> prayers;
  Day day = dayAt(place, from - kDay + 12 * 3600 - place.longitude * 240);
  while (day.noon < until + kDay) {
    const Day next = dayAt(place, day.noon + kDay);
    if (day.sunrise && day.sunset && next.sunrise) {
      addDay({place, parameters, day, *next.sunrise - *day.sunset},
             day.isEdge || next.isEdge || !next.sunset, prayers);
    }
    day = next;
  }
  leaveOutEarlyDawns(prayers);
  endNights(prayers);
  std::erase_if(prayers, [&](const TruePrayer& prayer) {
    return prayer.instant < from || prayer.instant >= until;
  });
  return prayers;
}

}  // namespace Course
