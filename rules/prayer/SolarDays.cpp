#include "rules/prayer/SolarDays.hpp"

#include <cmath>

#include "Adhan/Extensions/DateUtilities.hpp"
#include "Adhan/PrayerTimes.hpp"

namespace Hilalor {
namespace {

using Adhan::CalculationParameters;
using Adhan::Coordinates;
using Adhan::Prayer;

constexpr double kDay = 86400;
constexpr double kSecondsPerDegree = 240;

/// The sun's noon is never that far from the mean one; a method's minutes counted.
constexpr double kFarthestNoon = 30 * 60;

/// Degrees to the neighbours east and west: eight minutes, the sun's gain or loss of weeks.
constexpr double kNeighbour = 2;

SixTimes sixTimes(const Adhan::PrayerTimes& day) {
  return {day.fajr, day.sunrise, day.dhuhr, day.asr, day.maghrib, day.isha};
}

/// The sun's noon of those times, without the user's own minutes.
Date noonOf(const SixTimes& times, const CalculationParameters& parameters) {
  return times[static_cast<std::size_t>(Prayer::dhuhr)] -
         std::chrono::minutes(parameters.adjustments.dhuhr);
}

bool areNear(Date one, Date other, double seconds) {
  return std::abs((one - other).count()) <= seconds;
}

double midnightBefore(Date date) {
  return std::floor(date.secondsSince1970 / kDay) * kDay;
}

/// The engine's day whose date in UTC holds the instant.
std::optional<SixTimes> engineDay(const Coordinates& place, Date instant,
                                  const CalculationParameters& parameters,
                                  Adhan::Ephemeris& ephemeris) {
  const auto fields = Adhan::gregorianUTC().components(instant);
  const DateComponents date{fields.year, fields.month, fields.day, {}, {}, {}};
  const auto day = Adhan::PrayerTimes::make(place, date, parameters, ephemeris);
  return day ? std::optional(sixTimes(*day)) : std::nullopt;
}

/// The engine's day with that noon, under whichever date.
std::optional<SixTimes> engineDayAround(const Coordinates& place, Date meanNoon,
                                        const CalculationParameters& parameters,
                                        Adhan::Ephemeris& ephemeris) {
  for (const double later : {-kFarthestNoon, kFarthestNoon}) {
    const auto day = engineDay(place, meanNoon + Seconds(later), parameters, ephemeris);
    if (day && areNear(noonOf(*day, parameters), meanNoon, kFarthestNoon)) return day;
  }
  return std::nullopt;
}

}  // namespace

SolarDays::SolarDays(const Coordinates& place, const CalculationParameters& parameters)
    : place_(place), parameters_(parameters), eastward_(std::remainder(place.longitude, 360)) {}

std::optional<std::int64_t> SolarDays::dayOf(Date instant) const {
  const double localSeconds = instant.secondsSince1970 + kSecondsPerDegree * eastward_;
  if (!(std::abs(localSeconds) < Adhan::UTCCalendar::kFarthestSecond)) return std::nullopt;
  return static_cast<std::int64_t>(std::floor(localSeconds / kDay));
}

std::optional<SixTimes> SolarDays::times(std::int64_t day) {
  auto& kept = kept_[static_cast<std::uint64_t>(day) % kept_.size()];
  if (!kept || kept->day != day) kept = Kept{day, find(day)};
  return kept->times;
}

bool SolarDays::areOf(const Coordinates& place, const CalculationParameters& parameters) const {
  return place == place_ && parameters == parameters_;
}

std::optional<SixTimes> SolarDays::find(std::int64_t day) {
  const Date meanNoon{(static_cast<double>(day) + 0.5) * kDay - kSecondsPerDegree * eastward_};
  const double ofDay = meanNoon.secondsSince1970 - midnightBefore(meanNoon);
  const bool isNearMidnight = ofDay < kFarthestNoon || ofDay > kDay - kFarthestNoon;
  return isNearMidnight ? findNearMidnight(meanNoon)
                        : engineDay(place_, meanNoon, parameters_, ephemeris_);
}

std::optional<SixTimes> SolarDays::findNearMidnight(Date meanNoon) {
  std::optional<SixTimes> spoiled;
  for (const double later : {-kFarthestNoon, kFarthestNoon}) {
    const Date instant = meanNoon + Seconds(later);
    const auto day = engineDay(place_, instant, parameters_, ephemeris_);
    if (!day || !areNear(noonOf(*day, parameters_), meanNoon, kFarthestNoon)) continue;
    const auto next = engineDay(place_, instant + Seconds(kDay), parameters_, ephemeris_);
    // The engine's night ends with the next of its days.
    if (!next || areNear(noonOf(*next, parameters_), noonOf(*day, parameters_) + Seconds(kDay),
                         kFarthestNoon)) {
      return day;
    }
    spoiled = day;
  }
  const auto mean = betweenNeighbours(meanNoon);
  if (!spoiled || !mean) return spoiled ? spoiled : mean;
  SixTimes mended = *mean;
  for (std::size_t prayer = 0; prayer < mended.size(); ++prayer) {
    if (areNear(spoiled->at(prayer), mended[prayer], 60)) mended[prayer] = spoiled->at(prayer);
  }
  return mended;
}

std::optional<SixTimes> SolarDays::betweenNeighbours(Date meanNoon) {
  auto toTheSecond = parameters_;
  toTheSecond.rounding = Adhan::Rounding::none;
  const auto at = [&](double east) {
    return engineDayAround({place_.latitude, eastward_ + east},
                           meanNoon - Seconds(kSecondsPerDegree * east), toTheSecond, ephemeris_);
  };
  const auto west = at(-kNeighbour);
  const auto east = at(kNeighbour);
  if (!west || !east) return std::nullopt;
  SixTimes mean;
  for (std::size_t prayer = 0; prayer < mean.size(); ++prayer) {
    const Seconds apart = east->at(prayer) - west->at(prayer);
    mean[prayer] = Adhan::roundedMinute(west->at(prayer) + apart / 2, parameters_.rounding);
  }
  return mean;
}

}  // namespace Hilalor
