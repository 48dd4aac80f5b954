#include "Adhan/Astronomy/SolarTime.hpp"

#include "Adhan/Extensions/DateUtilities.hpp"

namespace Adhan {
namespace {

// Half the sun's disc and the refraction at the horizon, in degrees.
constexpr Angle kRisingAltitude{-50.0 / 60.0};

DateComponents midnight(DateComponents date) {
  date.hour = 0;
  date.minute = 0;
  return date;
}

}  // namespace

SolarTime::SolarTime(const DateComponents& midnight, const Coordinates& place,
                     const SolarCoordinates& previous, const SolarCoordinates& day,
                     const SolarCoordinates& next)
    : date(midnight),
      observer(place),
      solar(day),
      prevSolar(previous),
      nextSolar(next),
      passage_(place, previous, day, next) {
  approxTransit = passage_.approximateTransit;
}

std::optional<SolarTime> SolarTime::make(const DateComponents& date, const Coordinates& observer) {
  const DateComponents start = midnight(date);
  const double julianDay = Astronomical::julianDay(start);
  return SolarTime(start, observer, SolarCoordinates(julianDay - 1), SolarCoordinates(julianDay),
                   SolarCoordinates(julianDay + 1))
      .withEvents();
}

std::optional<SolarTime> SolarTime::following(const DateComponents& nextDate) const {
  const DateComponents start = midnight(nextDate);
  const double julianDay = Astronomical::julianDay(start);
  // Julian days at 0h end in .5 exactly, so that the difference is exact too.
  if (julianDay != Astronomical::julianDay(date) + 1) return make(nextDate, observer);
  return SolarTime(start, observer, solar, nextSolar, SolarCoordinates(julianDay + 1)).withEvents();
}

std::optional<SolarTime> SolarTime::withEvents() && {
  const auto transitTime = settingHour(date, Astronomical::correctedTransit(passage_));
  const auto sunriseTime = timeForSolarAngle(kRisingAltitude, /*afterTransit=*/false);
  const auto sunsetTime = timeForSolarAngle(kRisingAltitude, /*afterTransit=*/true);
  if (!transitTime || !sunriseTime || !sunsetTime) return std::nullopt;
  transit = *transitTime;
  sunrise = *sunriseTime;
  sunset = *sunsetTime;
  return *this;
}

std::optional<DateComponents> SolarTime::timeForSolarAngle(Angle altitude,
                                                           bool afterTransit) const {
  return settingHour(date, Astronomical::correctedHourAngle(passage_, altitude, afterTransit));
}

std::optional<DateComponents> SolarTime::afternoon(int shadowLength) const {
  const Angle fromZenithAtNoon{std::abs(observer.latitude - solar.declination.degrees)};
  return timeForSolarAngle(arctan(1 / (shadowLength + tan(fromZenithAtNoon))),
                           /*afterTransit=*/true);
}

}  // namespace Adhan
