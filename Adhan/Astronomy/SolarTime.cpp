#include "Adhan/Astronomy/SolarTime.hpp"

#include "Adhan/Astronomy/Astronomical.hpp"
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

double hoursAt(const SolarTime& day, Angle altitude, bool afterTransit) {
  return Astronomical::correctedHourAngle(
      day.approxTransit, altitude, day.observer, afterTransit, day.solar.apparentSiderealTime,
      {day.prevSolar.rightAscension, day.solar.rightAscension, day.nextSolar.rightAscension},
      {day.prevSolar.declination, day.solar.declination, day.nextSolar.declination});
}

double transitHours(const SolarTime& day) {
  return Astronomical::correctedTransit(
      day.approxTransit, {day.observer.longitude}, day.solar.apparentSiderealTime,
      {day.prevSolar.rightAscension, day.solar.rightAscension, day.nextSolar.rightAscension});
}

std::optional<SolarTime> fromPositions(const DateComponents& date, const Coordinates& observer,
                                       const SolarCoordinates& previous,
                                       const SolarCoordinates& solar,
                                       const SolarCoordinates& next) {
  const double approxTransit = Astronomical::approximateTransit(
      {observer.longitude}, solar.apparentSiderealTime, solar.rightAscension);
  SolarTime day{date, observer, solar, {}, {}, {}, previous, next, approxTransit};
  const auto transit = settingHour(date, transitHours(day));
  const auto sunrise = day.timeForSolarAngle(kRisingAltitude, /*afterTransit=*/false);
  const auto sunset = day.timeForSolarAngle(kRisingAltitude, /*afterTransit=*/true);
  if (!transit || !sunrise || !sunset) return std::nullopt;
  day.transit = *transit;
  day.sunrise = *sunrise;
  day.sunset = *sunset;
  return day;
}

}  // namespace

std::optional<SolarTime> SolarTime::make(const DateComponents& date, const Coordinates& observer) {
  const DateComponents start = midnight(date);
  const double julianDay = Astronomical::julianDay(start);
  return fromPositions(start, observer, SolarCoordinates(julianDay - 1),
                       SolarCoordinates(julianDay), SolarCoordinates(julianDay + 1));
}

std::optional<SolarTime> SolarTime::following(const DateComponents& nextDate) const {
  const DateComponents start = midnight(nextDate);
  const double julianDay = Astronomical::julianDay(start);
  // Julian days at 0h end in .5 exactly, so that the difference is exact too.
  if (julianDay != Astronomical::julianDay(date) + 1) return make(nextDate, observer);
  return fromPositions(start, observer, solar, nextSolar, SolarCoordinates(julianDay + 1));
}

std::optional<DateComponents> SolarTime::timeForSolarAngle(Angle altitude,
                                                           bool afterTransit) const {
  return settingHour(date, hoursAt(*this, altitude, afterTransit));
}

std::optional<DateComponents> SolarTime::afternoon(int shadowLength) const {
  const Angle fromZenithAtNoon{std::abs(observer.latitude - solar.declination.degrees)};
  return timeForSolarAngle(arctan(1 / (shadowLength + tan(fromZenithAtNoon))),
                           /*afterTransit=*/true);
}

}  // namespace Adhan
