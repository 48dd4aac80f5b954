#include "Adhan/ExactTimes.hpp"

#include "Adhan/Astronomy/SeasonalTwilight.hpp"
#include "Adhan/Astronomy/SolarTime.hpp"

namespace Adhan {
namespace {

// What the twilights of a day hang on.
struct Day {
  const CalculationParameters& parameters;
  SolarTime sun;
  Season season;
  Date sunrise;
  Date sunset;
  Seconds night{0};  // from sunset to the next sunrise

  [[nodiscard]] bool goesBySeason() const {
    return parameters.method == CalculationMethod::moonsightingCommittee;
  }

  // Where the seasonal rule first takes a seventh of the night; the south never does.
  [[nodiscard]] bool takesSeventhOfNight() const { return goesBySeason() && season.latitude >= 55; }

  // When the sun stands that many degrees below the horizon.
  [[nodiscard]] std::optional<Date> twilight(double degrees, bool afterTransit) const {
    const auto fields = sun.timeForSolarAngle({-degrees}, afterTransit);
    return fields ? gregorianUTC().date(*fields) : std::nullopt;
  }
};

std::optional<Day> dayOf(const Coordinates& coordinates, const DateComponents& date,
                         const CalculationParameters& parameters) {
  const auto& calendar = gregorianUTC();
  const auto start = calendar.date(date);
  const auto tomorrow = calendar.dayAfter(date);
  if (!start || !tomorrow || !date.year) return std::nullopt;
  const auto dayOfYear = calendar.ordinalDay(*start);
  const auto sun = SolarTime::make(date, coordinates);
  if (!dayOfYear || !sun) return std::nullopt;
  const auto nextSun = sun->following(*tomorrow);
  if (!nextSun) return std::nullopt;
  const auto sunrise = calendar.date(sun->sunrise);
  const auto sunset = calendar.date(sun->sunset);
  const auto nextSunrise = calendar.date(nextSun->sunrise);
  if (!sunrise || !sunset || !nextSunrise) return std::nullopt;
  return Day{parameters, *sun,    {coordinates.latitude, *dayOfYear, *date.year},
             *sunrise,   *sunset, *nextSunrise - *sunset};
}

Date earliestFajr(const Day& day) {
  if (day.goesBySeason()) return day.sunrise + seasonalMorningTwilight(day.season);
  return day.sunrise - day.parameters.nightPortions(day.sun.observer).fajr * day.night;
}

Date fajrOf(const Day& day) {
  const Date earliest = earliestFajr(day);
  const auto dawn = day.takesSeventhOfNight()
                        ? day.sunrise - day.night / 7
                        : day.twilight(day.parameters.fajrAngle, /*afterTransit=*/false);
  return !dawn || *dawn < earliest ? earliest : *dawn;
}

Date latestIsha(const Day& day) {
  if (day.goesBySeason()) {
    return day.sunset + seasonalEveningTwilight(day.season, day.parameters.shafaq);
  }
  return day.sunset + day.parameters.nightPortions(day.sun.observer).isha * day.night;
}

Date ishaOf(const Day& day) {
  if (day.parameters.ishaInterval > 0) {
    return day.sunset + std::chrono::minutes(day.parameters.ishaInterval);
  }
  const Date latest = latestIsha(day);
  const auto nightfall = day.takesSeventhOfNight()
                             ? day.sunset + day.night / 7
                             : day.twilight(day.parameters.ishaAngle, /*afterTransit=*/true);
  return !nightfall || *nightfall > latest ? latest : *nightfall;
}

Date maghribOf(const Day& day, Date isha) {
  if (!day.parameters.maghribAngle) return day.sunset;
  const auto dusk = day.twilight(*day.parameters.maghribAngle, /*afterTransit=*/true);
  return dusk && day.sunset < *dusk && isha > *dusk ? *dusk : day.sunset;
}

}  // namespace

std::optional<ExactTimes> ExactTimes::make(const Coordinates& coordinates,
                                           const DateComponents& date,
                                           const CalculationParameters& parameters) {
  const auto day = dayOf(coordinates, date, parameters);
  if (!day) return std::nullopt;
  const auto afternoon = day->sun.afternoon(rawValue(parameters.madhab));
  const auto asr = afternoon ? gregorianUTC().date(*afternoon) : std::nullopt;
  const auto dhuhr = gregorianUTC().date(day->sun.transit);
  if (!asr || !dhuhr) return std::nullopt;
  const Date nightfall = ishaOf(*day);
  return ExactTimes{fajrOf(*day), day->sunrise, *dhuhr, *asr, maghribOf(*day, nightfall),
                    nightfall};
}

}  // namespace Adhan
