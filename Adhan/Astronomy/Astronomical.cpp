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

Angle nutationInLongitude(Angle solarLongitude, Angle lunarLongitude, Angle ascendingNode) {
  return arcSeconds(-17.2) * sin(ascendingNode) - arcSeconds(1.32) * sin(2 * solarLongitude) -
         arcSeconds(0.23) * sin(2 * lunarLongitude) + arcSeconds(0.21) * sin(2 * ascendingNode);
}

Angle nutationInObliquity(Angle solarLongitude, Angle lunarLongitude, Angle ascendingNode) {
  return arcSeconds(9.2) * cos(ascendingNode) + arcSeconds(0.57) * cos(2 * solarLongitude) +
         arcSeconds(0.10) * cos(2 * lunarLongitude) - arcSeconds(0.09) * cos(2 * ascendingNode);
}

Angle altitudeOfCelestialBody(Angle latitude, Angle declination, Angle localHourAngle) {
  return arcsin(sin(latitude) * sin(declination) +
                cos(latitude) * cos(declination) * cos(localHourAngle));
}

double approximateTransit(Angle longitude, Angle siderealTime, Angle rightAscension) {
  const Angle west = -longitude;
  const double turns = (rightAscension + west - siderealTime).degrees / 360;
  return turns - std::floor(turns);
}

double correctedTransit(double approximateTransit, Angle longitude, Angle siderealTime,
                        const ThreeDays& rightAscension) {
  const Angle west = -longitude;
  const Angle turned =
      (siderealTime + Angle{kSiderealDegreesPerDay * approximateTransit}).unwound();
  const Angle ascension = interpolateAngles(rightAscension, approximateTransit).unwound();
  const Angle hourAngle = (turned - west - ascension).quadrantShifted();
  return (approximateTransit + hourAngle.degrees / -360) * 24;
}

double correctedHourAngle(double approximateTransit, Angle altitude, const Coordinates& observer,
                          bool afterTransit, Angle siderealTime, const ThreeDays& rightAscension,
                          const ThreeDays& declination) {
  const Angle latitude{observer.latitude};
  const Angle west{-observer.longitude};
  const Angle halfArc = arccos((sin(altitude) - sin(latitude) * sin(declination.day)) /
                               (cos(latitude) * cos(declination.day)));
  const double arcOfDay = halfArc.degrees / 360;
  const double time = afterTransit ? approximateTransit + arcOfDay : approximateTransit - arcOfDay;
  const Angle turned = (siderealTime + Angle{kSiderealDegreesPerDay * time}).unwound();
  const Angle ascension = interpolateAngles(rightAscension, time).unwound();
  const Angle declinationThen = interpolate(declination, time);
  const Angle hourAngle = turned - west - ascension;
  const Angle altitudeThen = altitudeOfCelestialBody(latitude, declinationThen, hourAngle);
  const double correction = (altitudeThen - altitude).degrees /
                            (360 * cos(declinationThen) * cos(latitude) * sin(hourAngle));
  return (time + correction) * 24;
}

Angle interpolate(const ThreeDays& values, double factor) {
  const Angle a = values.day - values.previous;
  const Angle b = values.next - values.day;
  const Angle c = b - a;
  return values.day + factor / 2 * (a + b + factor * c);
}

Angle interpolateAngles(const ThreeDays& values, double factor) {
  const Angle a = (values.day - values.previous).unwound();
  const Angle b = (values.next - values.day).unwound();
  const Angle c = b - a;
  return values.day + factor / 2 * (a + b + factor * c);
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
