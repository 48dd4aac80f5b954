#include "Adhan/ExactTimes.hpp"

#include <array>
#include <cmath>

#include "Adhan/Astronomy/SeasonalTwilight.hpp"
#include "Adhan/Extensions/CivilDay.hpp"
#include "Adhan/Extensions/DateUtilities.hpp"

namespace Adhan {
namespace {

using Astronomical::Crossing;
using Astronomical::Event;
using Astronomical::Observer;
using Astronomical::Passage;

// The sun over the place on one UTC day.
struct Sky {
  Date midnight;
  Passage sun;

  [[nodiscard]] std::optional<Date> at(double hours) const {
    const auto time = clockTime(hours);
    return time ? UTCCalendar::inRange(midnight + time->sinceMidnight()) : std::nullopt;
  }
};

// A civil day at a place.
struct Day {
  const CalculationParameters& parameters;
  const Coordinates& place;
  const DateComponents& date;
  CivilDay civil;
  NightPortions portions;

  [[nodiscard]] bool goesBySeason() const {
    return parameters.method == CalculationMethod::moonsightingCommittee;
  }

  // Where the seasonal rule first takes a seventh of the night; the south never does.
  [[nodiscard]] bool takesSeventhOfNight() const { return goesBySeason() && place.latitude >= 55; }

  [[nodiscard]] Season season() const {
    const auto start = gregorianUTC().date(date);
    return {place.latitude, start ? gregorianUTC().ordinalDay(*start).value_or(1) : 1,
            date.year.value_or(1)};
  }
};

// The events of the day before the rules for long twilights.
struct Sun {
  Date sunrise;
  Date dhuhr;
  Date asr;
  Date sunset;
  std::optional<Date> dawn;
  std::optional<Date> nightfall;  // not looked for with an interval
};

std::optional<Sun> sunOf(const Day& day, const Sky& sky) {
  const auto horizon = Crossing::ofHorizon(sky.sun);
  if (std::isnan(horizon.halfArc.degrees)) return std::nullopt;
  enum { kSunrise, kSunset, kAsr, kFajr, kIsha, kEvents };
  std::array<Event, kEvents> events{{
      {sky.sun, horizon, false},
      {sky.sun, horizon, true},
      {sky.sun, Crossing::ofShadow(sky.sun, rawValue(day.parameters.madhab)), true},
      {sky.sun, Crossing::of(sky.sun, {-day.parameters.fajrAngle}), false},
      {sky.sun, Crossing::of(sky.sun, {-day.parameters.ishaAngle}), true},
  }};
  const bool looksForIsha = day.parameters.ishaInterval <= 0;
  correctHourAngles(std::span(events).first(looksForIsha ? kEvents : kIsha));
  const auto sunrise = sky.at(events[kSunrise].hours);
  const auto sunset = sky.at(events[kSunset].hours);
  const auto dhuhr = sky.at(correctedTransit(sky.sun));
  const auto asr = sky.at(events[kAsr].hours);
  if (!sunrise || !sunset || !dhuhr || !asr) return std::nullopt;
  return Sun{*sunrise,
             *dhuhr,
             *asr,
             *sunset,
             sky.at(events[kFajr].hours),
             looksForIsha ? sky.at(events[kIsha].hours) : std::nullopt};
}

// The night from sunset to the sunrise of the next day.
struct Night {
  Seconds length{0};
  bool isExact = false;
};

// None when the next day lacks sunrise, transit or sunset.
std::optional<Night> exactNight(const Day& day, Date sunset, const SolarDay& nextSun) {
  const Sky sky{day.civil.nextMidnight, Passage(day.place, nextSun)};
  const auto horizon = Crossing::ofHorizon(sky.sun);
  std::array<Event, 2> events{{{sky.sun, horizon, false}, {sky.sun, horizon, true}}};
  correctHourAngles(events);
  const auto sunrise = sky.at(events[0].hours);
  if (!sunrise || !sky.at(events[1].hours) || !clockTime(correctedTransit(sky.sun))) {
    return std::nullopt;
  }
  return Night{*sunrise - sunset, true};
}

// A length that the night surely reaches. Most twilights are so much shorter that this is enough,
// and the next day's sun need not be known. None where the next sunrise may be far from today's.
//
// Up to 60 degrees, on days of 5 to 19 hours, the declination of the next day, 0.4 degrees further
// at most, moves sunrise by no more than 7 minutes; what the sun moves within either day, by no
// more than 20. The transit moves by half a minute, so that it does not leave its civil day here.
std::optional<Night> leastNight(const Day& day, const Sky& sky, const Sun& sun) {
  constexpr double kMargin = 0.02;  // days
  const Seconds daylight = sun.sunset - sun.sunrise;
  const double transit = sky.sun.approximateTransit;
  const double rising = (sun.sunrise - day.civil.midnight).count() / UTCCalendar::kSecondsPerDay;
  const bool isOrdinary =
      std::abs(day.place.latitude) <= 60 && std::abs(day.place.longitude) <= 360 &&
      daylight > std::chrono::hours(5) && daylight < std::chrono::hours(19) && transit > kMargin &&
      transit < 1 - kMargin && std::abs(rising) > kMargin && day.civil.isRegular() &&
      day.portions.fajr >= 0 && day.portions.isha >= 0;
  if (!isOrdinary) return std::nullopt;
  return Night{Seconds((1 - kMargin) * UTCCalendar::kSecondsPerDay) - daylight, false};
}

Date earliestFajr(const Day& day, const Sun& sun, Seconds night) {
  if (day.goesBySeason()) return sun.sunrise + seasonalMorningTwilight(day.season());
  return sun.sunrise - day.portions.fajr * night;
}

Date latestIsha(const Day& day, const Sun& sun, Seconds night) {
  if (day.goesBySeason()) {
    return sun.sunset + seasonalEveningTwilight(day.season(), day.parameters.shafaq);
  }
  return sun.sunset + day.portions.isha * night;
}

// None when it takes the exact night.
std::optional<Date> fajrOf(const Day& day, const Sun& sun, const Night& night) {
  const auto dawn =
      day.takesSeventhOfNight() ? std::optional(sun.sunrise - night.length / 7) : sun.dawn;
  const Date earliest = earliestFajr(day, sun, night.length);
  const bool isBound = !dawn || *dawn < earliest;
  if (!night.isExact && (isBound || day.takesSeventhOfNight())) return std::nullopt;
  return isBound ? earliest : *dawn;
}

// None when it takes the exact night.
std::optional<Date> ishaOf(const Day& day, const Sun& sun, const Night& night) {
  if (day.parameters.ishaInterval > 0) {
    return sun.sunset + std::chrono::minutes(day.parameters.ishaInterval);
  }
  const auto nightfall =
      day.takesSeventhOfNight() ? std::optional(sun.sunset + night.length / 7) : sun.nightfall;
  const Date latest = latestIsha(day, sun, night.length);
  const bool isBound = !nightfall || *nightfall > latest;
  if (!night.isExact && (isBound || day.takesSeventhOfNight())) return std::nullopt;
  return isBound ? latest : *nightfall;
}

struct Twilights {
  Date fajr;
  Date isha;
};

// None without a night, and when they take the exact one.
std::optional<Twilights> twilightsOf(const Day& day, const Sun& sun,
                                     const std::optional<Night>& night) {
  const auto fajr = night ? fajrOf(day, sun, *night) : std::nullopt;
  const auto isha = fajr ? ishaOf(day, sun, *night) : std::nullopt;
  return isha ? std::optional(Twilights{*fajr, *isha}) : std::nullopt;
}

Date maghribOf(const Day& day, const Sky& sky, Date sunset, Date isha) {
  if (!day.parameters.maghribAngle) return sunset;
  const Angle altitude{-*day.parameters.maghribAngle};
  const auto dusk = sky.at(correctedHourAngle(sky.sun, altitude, /*afterTransit=*/true));
  return dusk && sunset < *dusk && isha > *dusk ? *dusk : sunset;
}

}  // namespace

std::optional<ExactTimes> ExactTimes::make(const Coordinates& coordinates,
                                           const DateComponents& date,
                                           const CalculationParameters& parameters) {
  Ephemeris ephemeris;
  return make(coordinates, date, parameters, ephemeris);
}

std::optional<ExactTimes> ExactTimes::make(const Coordinates& coordinates,
                                           const DateComponents& date,
                                           const CalculationParameters& parameters,
                                           Ephemeris& ephemeris) {
  const auto civil = CivilDay::of(date);
  if (!civil) return std::nullopt;
  const Day day{parameters, coordinates, date, *civil, parameters.nightPortions(coordinates)};
  const Sky sky{civil->midnight, Passage(coordinates, ephemeris.at(civil->julianDay))};
  const auto sun = sunOf(day, sky);
  if (!sun) return std::nullopt;
  auto twilights = twilightsOf(day, *sun, leastNight(day, sky, *sun));
  if (!twilights) {
    const SolarDay& nextSun = ephemeris.at(civil->nextJulianDay());
    twilights = twilightsOf(day, *sun, exactNight(day, sun->sunset, nextSun));
  }
  if (!twilights) return std::nullopt;
  const auto [fajr, isha] = *twilights;
  return ExactTimes{
      fajr, sun->sunrise, sun->dhuhr, sun->asr, maghribOf(day, sky, sun->sunset, isha), isha};
}

}  // namespace Adhan
