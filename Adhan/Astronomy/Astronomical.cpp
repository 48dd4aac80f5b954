#include "Adhan/Astronomy/Astronomical.hpp"

#include <cmath>
#include <cstdint>

namespace Adhan::Astronomical {
namespace {

// Degrees the earth turns against the stars in a day.
constexpr double kSiderealDegreesPerDay = 360.985647;

// Of the moon's node without its slow terms, as the formulas of the apparent sun take it.
Angle meanNode(double T) {
  return {125.04 - 1934.136 * T};
}

Angle arcSeconds(double seconds) {
  return {seconds / 3600};
}

// Of the sun above the horizon, negative below (ch. 13).
Angle altitudeAt(const Passage& passage, Angle declination, Angle hourAngle) {
  return arcsin(passage.sinLatitude * sin(declination) +
                passage.cosLatitude * cos(declination) * cos(hourAngle));
}

}  // namespace

double julianDay(const Hilalor::DateComponents& dateComponents) {
  const std::int64_t givenYear = dateComponents.year.value_or(1);
  const std::int64_t givenMonth = dateComponents.month.value_or(1);
  // The leap day comes last when January and February end the year before.
  const bool endsYearBefore = givenMonth <= 2;
  const std::int64_t year = endsYearBefore ? givenYear - 1 : givenYear;
  const std::int64_t month = endsYearBefore ? givenMonth + 12 : givenMonth;
  const std::int64_t century = year / 100;
  const std::int64_t gregorian = 2 - century + century / 4;
  const double daysOfYears = std::trunc(365.25 * static_cast<double>(year + 4716));
  const double daysOfMonths = std::trunc(30.6001 * static_cast<double>(month + 1));
  const double hours = dateComponents.hour.value_or(0) + dateComponents.minute.value_or(0) / 60.0;
  const double day = dateComponents.day.value_or(1) + hours / 24;
  return day + (daysOfMonths + daysOfYears) + static_cast<double>(gregorian) - 1524.5;
}

double julianCentury(double julianDay) {
  return (julianDay - 2451545.0) / 36525;
}

Angle meanSolarLongitude(double T) {
  return Angle{280.4664567 + 36000.76983 * T + 0.0003032 * T * T}.unwound();
}

Angle meanLunarLongitude(double T) {
  return Angle{218.3165 + 481267.8813 * T}.unwound();
}

Angle ascendingLunarNodeLongitude(double T) {
  return Angle{125.04452 - 1934.136261 * T + 0.0020708 * T * T + T * T * T / 450000}.unwound();
}

Angle meanSolarAnomaly(double T) {
  return Angle{357.52911 + 35999.05029 * T - 0.0001537 * T * T}.unwound();
}

Angle solarEquationOfTheCenter(double T, Angle meanAnomaly) {
  return {(1.914602 - 0.004817 * T - 0.000014 * T * T) * sin(meanAnomaly) +
          (0.019993 - 0.000101 * T) * sin(2 * meanAnomaly) + 0.000289 * sin(3 * meanAnomaly)};
}

Angle apparentSolarLongitude(double julianCentury, Angle meanLongitude) {
  const double T = julianCentury;
  const Angle trueLongitude = meanLongitude + solarEquationOfTheCenter(T, meanSolarAnomaly(T));
  const Angle aberration{0.00569};
  const Angle nutation{0.00478 * sin(meanNode(T))};
  return (trueLongitude - aberration - nutation).unwound();
}

Angle meanObliquityOfTheEcliptic(double T) {
  return {23.439291 - 0.013004167 * T - 0.0000001639 * T * T + 0.0000005036 * T * T * T};
}

Angle apparentObliquityOfTheEcliptic(double T, Angle meanObliquity) {
  return meanObliquity + Angle{0.00256 * cos(meanNode(T))};
}

Angle meanSiderealTime(double T) {
  const double julianDay = T * 36525 + 2451545.0;
  return Angle{280.46061837 + 360.98564736629 * (julianDay - 2451545) + 0.000387933 * T * T -
               T * T * T / 38710000}
      .unwound();
}

Nutation nutation(Angle solarLongitude, Angle lunarLongitude, Angle ascendingNode) {
  const Angle inLongitude =
      arcSeconds(-17.2) * sin(ascendingNode) - arcSeconds(1.32) * sin(2 * solarLongitude) -
      arcSeconds(0.23) * sin(2 * lunarLongitude) + arcSeconds(0.21) * sin(2 * ascendingNode);
  const Angle inObliquity =
      arcSeconds(9.2) * cos(ascendingNode) + arcSeconds(0.57) * cos(2 * solarLongitude) +
      arcSeconds(0.10) * cos(2 * lunarLongitude) - arcSeconds(0.09) * cos(2 * ascendingNode);
  return {inLongitude, inObliquity};
}

Interpolation Interpolation::of(Angle previous, Angle value, Angle next) {
  const Angle before = value - previous;
  const Angle after = next - value;
  return {value, before + after, after - before};
}

Interpolation Interpolation::ofTurning(Angle previous, Angle value, Angle next) {
  const Angle before = (value - previous).unwound();
  const Angle after = (next - value).unwound();
  return {value, before + after, after - before};
}

Passage::Passage(const Coordinates& observer, const SolarCoordinates& previousDay,
                 const SolarCoordinates& day, const SolarCoordinates& nextDay)
    : west{-observer.longitude},
      siderealTime(day.apparentSiderealTime),
      rightAscension(Interpolation::ofTurning(previousDay.rightAscension, day.rightAscension,
                                              nextDay.rightAscension)),
      declination(Interpolation::of(previousDay.declination, day.declination, nextDay.declination)),
      approximateTransit(
          Astronomical::approximateTransit({observer.longitude}, siderealTime, day.rightAscension)),
      sinLatitude(sin(Angle{observer.latitude})),
      cosLatitude(cos(Angle{observer.latitude})),
      sinDeclination(sin(day.declination)),
      cosDeclination(cos(day.declination)) {}

double approximateTransit(Angle longitude, Angle siderealTime, Angle rightAscension) {
  const Angle west = -longitude;
  const double turns = (rightAscension + west - siderealTime).degrees / 360;
  return turns - std::floor(turns);
}

double correctedTransit(const Passage& passage) {
  const double transit = passage.approximateTransit;
  const Angle turned = (passage.siderealTime + Angle{kSiderealDegreesPerDay * transit}).unwound();
  const Angle rightAscension = passage.rightAscension.at(transit).unwound();
  const Angle hourAngle = (turned - passage.west - rightAscension).quadrantShifted();
  return (transit + hourAngle.degrees / -360) * 24;
}

double correctedHourAngle(const Passage& passage, Angle altitude, bool afterTransit) {
  const Angle halfArc = arccos((sin(altitude) - passage.sinLatitude * passage.sinDeclination) /
                               (passage.cosLatitude * passage.cosDeclination));
  const double fromTransit = halfArc.degrees / 360;
  const double time = afterTransit ? passage.approximateTransit + fromTransit
                                   : passage.approximateTransit - fromTransit;
  const Angle turned = (passage.siderealTime + Angle{kSiderealDegreesPerDay * time}).unwound();
  const Angle rightAscension = passage.rightAscension.at(time).unwound();
  const Angle declination = passage.declination.at(time);
  const Angle hourAngle = turned - passage.west - rightAscension;
  const Angle altitudeThen = altitudeAt(passage, declination, hourAngle);
  const double correction = (altitudeThen - altitude).degrees /
                            (360 * cos(declination) * passage.cosLatitude * sin(hourAngle));
  return (time + correction) * 24;
}

bool isLeapYear(int year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int daysSinceSolstice(int dayOfYear, int year, double latitude) {
  const bool leap = isLeapYear(year);
  const int daysInYear = leap ? 366 : 365;
  if (latitude >= 0) {
    const int days = dayOfYear + 10;
    return days >= daysInYear ? days - daysInYear : days;
  }
  const int days = dayOfYear - (leap ? 173 : 172);
  return days < 0 ? days + daysInYear : days;
}

}  // namespace Adhan::Astronomical
