#include "Adhan/Astronomy/Astronomical.hpp"

#include <array>
#include <cmath>
#include <cstdint>

#include "Adhan/Astronomy/SolarDay.hpp"

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

// From transit to where the sine of the sun's altitude is this, by the day's declination.
Angle arcTo(const Passage& passage, double sinAltitude) {
  return arccos((sinAltitude - passage.sinLatitude * passage.sinDeclination) /
                (passage.cosLatitude * passage.cosDeclination));
}

constexpr std::size_t kSideBySide = 8;

// Each step for all events before the next step: a processor works on sines that do not wait for
// one another side by side.
void correctSideBySide(std::span<Event> events) {
  struct Sun {
    double time;       // days, by the right ascension and declination of the day
    double hourAngle;  // degrees
    double sinHourAngle;
    double sinDeclination;
    double cosDeclination;
    double sinAltitude;
  };
  std::array<Sun, kSideBySide> suns;
  for (std::size_t at = 0; at < events.size(); ++at) {
    const Passage& passage = *events[at].passage;
    const double fromTransit = events[at].crossing.halfArc.degrees / 360;
    const double time = events[at].afterTransit ? passage.approximateTransit + fromTransit
                                                : passage.approximateTransit - fromTransit;
    const Angle turned = (passage.siderealTime + Angle{kSiderealDegreesPerDay * time}).unwound();
    const Angle rightAscension = passage.rightAscension.at(time).unwound();
    suns[at].time = time;
    suns[at].hourAngle = (turned + passage.longitude - rightAscension).degrees;
  }
  for (std::size_t at = 0; at < events.size(); ++at) {
    const Angle declination = events[at].passage->declination.at(suns[at].time);
    suns[at].sinDeclination = sin(declination);
    suns[at].cosDeclination = cos(declination);
  }
  for (std::size_t at = 0; at < events.size(); ++at) {
    // The altitude above the horizon (ch. 13).
    const Passage& passage = *events[at].passage;
    const Angle hourAngle{suns[at].hourAngle};
    suns[at].sinAltitude = passage.sinLatitude * suns[at].sinDeclination +
                           passage.cosLatitude * suns[at].cosDeclination * cos(hourAngle);
    suns[at].sinHourAngle = sin(hourAngle);
  }
  for (std::size_t at = 0; at < events.size(); ++at) {
    const Sun& sun = suns[at];
    const double missing = (arcsin(sun.sinAltitude) - events[at].crossing.altitude).degrees;
    const double correction =
        missing / (360 * sun.cosDeclination * events[at].passage->cosLatitude * sun.sinHourAngle);
    events[at].hours = (sun.time + correction) * 24;
  }
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

Observer::Observer(const Coordinates& place)
    : latitude{place.latitude},
      longitude{place.longitude},
      sinLatitude(sin(latitude)),
      cosLatitude(cos(latitude)) {}

Passage::Passage(const Observer& observer, const SolarDay& sun)
    : Observer(observer),
      siderealTime(sun.day.apparentSiderealTime),
      rightAscension(sun.rightAscension),
      declination(sun.declination),
      approximateTransit(
          Astronomical::approximateTransit(longitude, siderealTime, sun.day.rightAscension)),
      sinDeclination(sun.sinDeclination),
      cosDeclination(sun.cosDeclination) {}

double approximateTransit(Angle longitude, Angle siderealTime, Angle rightAscension) {
  const Angle west = -longitude;
  const double turns = (rightAscension + west - siderealTime).degrees / 360;
  return turns - std::floor(turns);
}

double correctedTransit(const Passage& passage) {
  const double transit = passage.approximateTransit;
  const Angle turned = (passage.siderealTime + Angle{kSiderealDegreesPerDay * transit}).unwound();
  const Angle rightAscension = passage.rightAscension.at(transit).unwound();
  const Angle hourAngle = (turned + passage.longitude - rightAscension).quadrantShifted();
  return (transit + hourAngle.degrees / -360) * 24;
}

Crossing Crossing::of(const Passage& passage, Angle altitude) {
  return {altitude, arcTo(passage, sin(altitude))};
}

Crossing Crossing::ofHorizon(const Passage& passage) {
  // Half the sun's disc and the refraction at the horizon, in degrees.
  constexpr Angle kAltitude{-50.0 / 60.0};
  static const double kSine = sin(kAltitude);
  return {kAltitude, arcTo(passage, kSine)};
}

Crossing Crossing::ofShadow(const Passage& passage, int shadowLength) {
  const Angle fromZenithAtNoon{std::abs((passage.latitude - passage.declination.value).degrees)};
  return of(passage, arctan(1 / (shadowLength + tan(fromZenithAtNoon))));
}

void correctHourAngles(std::span<Event> events) {
  for (; events.size() > kSideBySide; events = events.subspan(kSideBySide))
    correctSideBySide(events.first(kSideBySide));
  correctSideBySide(events);
}

double correctedHourAngle(const Passage& passage, const Crossing& crossing, bool afterTransit) {
  Event event(passage, crossing, afterTransit);
  correctHourAngles({&event, 1});
  return event.hours;
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
