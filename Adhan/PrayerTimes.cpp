#include "Adhan/PrayerTimes.hpp"

#include <algorithm>
#include <cmath>
#include <ostream>

#include "Adhan/ExactTimes.hpp"
#include "Adhan/Extensions/DateUtilities.hpp"

namespace Adhan {

std::optional<PrayerTimes> PrayerTimes::make(const Coordinates& coordinates,
                                             const DateComponents& date,
                                             const CalculationParameters& calculationParameters) {
  Ephemeris ephemeris;
  return make(coordinates, date, calculationParameters, ephemeris);
}

std::optional<PrayerTimes> PrayerTimes::make(const Coordinates& coordinates,
                                             const DateComponents& date,
                                             const CalculationParameters& calculationParameters,
                                             Ephemeris& ephemeris) {
  const auto exact = ExactTimes::make(coordinates, date, calculationParameters, ephemeris);
  if (!exact) return std::nullopt;
  const auto adjusted = [&](Date time, int PrayerAdjustments::*prayer) {
    const std::chrono::minutes own(calculationParameters.adjustments.*prayer);
    const std::chrono::minutes methods(calculationParameters.methodAdjustments.*prayer);
    return roundedMinute(time + own + methods, calculationParameters.rounding);
  };
  const PrayerTimes times{adjusted(exact->fajr, &PrayerAdjustments::fajr),
                          adjusted(exact->sunrise, &PrayerAdjustments::sunrise),
                          adjusted(exact->dhuhr, &PrayerAdjustments::dhuhr),
                          adjusted(exact->asr, &PrayerAdjustments::asr),
                          adjusted(exact->maghrib, &PrayerAdjustments::maghrib),
                          adjusted(exact->isha, &PrayerAdjustments::isha),
                          coordinates,
                          date,
                          calculationParameters};
  // Angles and latitudes that are no angles can pass the sun's formulas and spoil a bound.
  const auto found = {times.fajr, times.sunrise, times.dhuhr, times.asr, times.maghrib, times.isha};
  const bool finite =
      std::ranges::all_of(found, [](Date time) { return std::isfinite(time.secondsSince1970); });
  return finite ? std::optional(times) : std::nullopt;
}

std::optional<Prayer> PrayerTimes::currentPrayer(Date at) const {
  std::optional<Prayer> current;
  for (const Prayer prayer : allCases<Prayer>()) {
    if (time(prayer) <= at) current = prayer;
  }
  return current;
}

std::optional<Prayer> PrayerTimes::nextPrayer(Date at) const {
  const auto current = currentPrayer(at);
  if (!current) return Prayer::fajr;
  if (*current == Prayer::isha) return std::nullopt;
  return static_cast<Prayer>(static_cast<int>(*current) + 1);
}

Date PrayerTimes::time(Prayer prayer) const {
  switch (prayer) {
    case Prayer::fajr:
      return fajr;
    case Prayer::sunrise:
      return sunrise;
    case Prayer::dhuhr:
      return dhuhr;
    case Prayer::asr:
      return asr;
    case Prayer::maghrib:
      return maghrib;
    case Prayer::isha:
      break;
  }
  return isha;
}

std::ostream& operator<<(std::ostream& out, const PrayerTimes& times) {
  const char* separator = "";
  for (const Prayer prayer : allCases<Prayer>()) {
    out << separator << prayer << ' ' << times.time(prayer);
    separator = ", ";
  }
  return out;
}

}  // namespace Adhan
