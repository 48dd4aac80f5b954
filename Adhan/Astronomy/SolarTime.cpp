#include "Adhan/Astronomy/SolarTime.hpp"

#include "Adhan/Extensions/DateUtilities.hpp"

namespace Adhan {
namespace {

using Astronomical::Crossing;

DateComponents midnight(DateComponents date) {
  date.hour = 0;
  date.minute = 0;
  return date;
}

}  // namespace

SolarTime::SolarTime(const DateComponents& midnight, const Coordinates& place, const SolarDay& sun)
    : date(midnight),
      observer(place),
      solar(sun.day),
      prevSolar(sun.previous),
      nextSolar(sun.next),
      passage_(place, sun) {
  approxTransit = passage_.approximateTransit;
}

std::optional<SolarTime> SolarTime::make(const DateComponents& date, const Coordinates& observer) {
  Ephemeris ephemeris;
  return make(date, observer, ephemeris);
}

std::optional<SolarTime> SolarTime::make(const DateComponents& date, const Coordinates& observer,
                                         Ephemeris& ephemeris) {
  const DateComponents start = midnight(date);
  return SolarTime(start, observer, ephemeris.at(Astronomical::julianDay(start))).withEvents();
}

std::optional<SolarTime> SolarTime::withEvents() && {
  const auto horizon = Crossing::ofHorizon(passage_);
  const auto transitTime = settingHour(date, Astronomical::correctedTransit(passage_));
  const auto sunriseTime = timeOf(horizon, /*afterTransit=*/false);
  const auto sunsetTime = timeOf(horizon, /*afterTransit=*/true);
  if (!transitTime || !sunriseTime || !sunsetTime) return std::nullopt;
  transit = *transitTime;
  sunrise = *sunriseTime;
  sunset = *sunsetTime;
  return *this;
}

std::optional<DateComponents> SolarTime::timeOf(const Crossing& crossing, bool afterTransit) const {
  return settingHour(date, Astronomical::correctedHourAngle(passage_, crossing, afterTransit));
}

std::optional<DateComponents> SolarTime::timeForSolarAngle(Angle altitude,
                                                           bool afterTransit) const {
  return timeOf(Crossing::of(passage_, altitude), afterTransit);
}

std::optional<DateComponents> SolarTime::afternoon(int shadowLength) const {
  return timeOf(Crossing::ofShadow(passage_, shadowLength), /*afterTransit=*/true);
}

}  // namespace Adhan
