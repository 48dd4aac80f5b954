#pragma once

#include <span>

#include "Adhan/Astronomy/SolarCoordinates.hpp"
#include "Adhan/Models/Coordinates.hpp"
#include "Adhan/Units/Angle.hpp"
#include "datetime/DateComponents.hpp"

/// The formulas of the sun's place in the sky, of low precision: a few seconds in the times of a
/// day between 1950 and 2100. From J. Meeus, "Astronomical Algorithms", 2nd ed.; the chapter stands
/// with each. T is always the Julian century. Pure functions of their arguments; NaN runs through.
namespace Adhan {
struct SolarDay;
}

namespace Adhan::Astronomical {

/// Days and their fraction since noon of 1 January 4713 BC (ch. 7). Absent year, month and day
/// count as 1, absent hour and minute as 0; seconds are not read.
[[nodiscard]] double julianDay(const Hilalor::DateComponents& dateComponents);

/// Centuries of 36525 days since 2000-01-01 12:00 (ch. 25).
[[nodiscard]] double julianCentury(double julianDay);

/// Of the mean equinox of the date, in [0, 360) (ch. 25).
[[nodiscard]] Angle meanSolarLongitude(double T);

/// In [0, 360) (ch. 22).
[[nodiscard]] Angle meanLunarLongitude(double T);

/// Of the moon's mean orbit, in [0, 360) (ch. 22).
[[nodiscard]] Angle ascendingLunarNodeLongitude(double T);

/// In [0, 360) (ch. 25).
[[nodiscard]] Angle meanSolarAnomaly(double T);

/// How far the true sun runs ahead of the mean one, negative behind (ch. 25).
[[nodiscard]] Angle solarEquationOfTheCenter(double T, Angle meanAnomaly);

/// The sun's longitude as it is seen, with nutation and aberration, in [0, 360) (ch. 25).
[[nodiscard]] Angle apparentSolarLongitude(double julianCentury, Angle meanLongitude);

/// The tilt of the earth's axis without nutation (ch. 22).
[[nodiscard]] Angle meanObliquityOfTheEcliptic(double T);

/// The tilt as the sun's apparent position wants it (ch. 25).
[[nodiscard]] Angle apparentObliquityOfTheEcliptic(double T, Angle meanObliquity);

/// At Greenwich, in [0, 360) (ch. 12).
[[nodiscard]] Angle meanSiderealTime(double T);

/// How far the moon sways the equinox along the ecliptic and the tilt of the earth's axis.
struct Nutation {
  Angle inLongitude;
  Angle inObliquity;
};

/// From the mean longitudes of sun and moon and the moon's ascending node (ch. 22).
[[nodiscard]] Nutation nutation(Angle solarLongitude, Angle lunarLongitude, Angle ascendingNode);

/// A parabola through the values of an angle at 0h of three days in a row (ch. 3).
struct Interpolation {
  Angle value;  ///< Of the middle day.
  Angle slope;  ///< Twice the growth a day at the middle.
  Angle curve;  ///< What the growth gains a day.

  /// Of an angle that swings, such as a declination.
  [[nodiscard]] static Interpolation of(Angle previous, Angle value, Angle next);

  /// Of one that only grows and begins anew after a full turn, such as a right ascension.
  [[nodiscard]] static Interpolation ofTurning(Angle previous, Angle value, Angle next);

  /// The value `days` after the middle one; not reduced to [0, 360).
  [[nodiscard]] Angle at(double days) const { return value + days / 2 * (slope + days * curve); }
};

/// A place, with what every passage of the sun over it shares.
struct Observer {
  explicit Observer(const Coordinates& place);

  Angle latitude;
  Angle longitude;
  double sinLatitude = 0;
  double cosLatitude = 0;
};

/// The sun's passage over an observer on one day: what its transit, rising and setting share.
struct Passage : Observer {
  Passage(const Observer& observer, const SolarDay& sun);
  Passage(const Coordinates& place, const SolarDay& sun) : Passage(Observer(place), sun) {}

  Angle siderealTime;
  Interpolation rightAscension;
  Interpolation declination;
  double approximateTransit = 0;
  double sinDeclination = 0;  ///< Of the day's declination.
  double cosDeclination = 0;
};

/// The transit over the meridian as a fraction of the day, in [0, 1) but for the last bit, good
/// to some minutes (ch. 15). `longitude` east positive.
[[nodiscard]] double approximateTransit(Angle longitude, Angle siderealTime, Angle rightAscension);

/// The transit in hours of the day (ch. 15). Near the antimeridian it can lie below 0 or above 24.
[[nodiscard]] double correctedTransit(const Passage& passage);

/// An altitude that the sun stands at twice on its passage, as long before as after the transit but
/// for its own motion on the day.
struct Crossing {
  Angle altitude;
  Angle halfArc;  ///< From crossing to transit; NaN when the sun never stands there on that day.

  [[nodiscard]] static Crossing of(const Passage& passage, Angle altitude);

  /// Of the sun's upper edge and the horizon, with refraction: rising and setting.
  [[nodiscard]] static Crossing ofHorizon(const Passage& passage);

  /// Where shadows are longer than at noon by `shadowLength` heights of the object that casts them.
  [[nodiscard]] static Crossing ofShadow(const Passage& passage, int shadowLength);
};

/// The hours of the day at which the sun stands at the altitude, before or after its transit (ch.
/// 15); below 0 and above 24 on the day before and after. NaN when it never does on that day.
[[nodiscard]] double correctedHourAngle(const Passage& passage, const Crossing& crossing,
                                        bool afterTransit);
[[nodiscard]] inline double correctedHourAngle(const Passage& passage, Angle altitude,
                                               bool afterTransit) {
  return correctedHourAngle(passage, Crossing::of(passage, altitude), afterTransit);
}

/// The sun at an altitude before or after the transit of its passage, and when it is there.
struct Event {
  Event(const Passage& ofSun, const Crossing& at, bool after)
      : passage(&ofSun), crossing(at), afterTransit(after) {}

  const Passage* passage;
  Crossing crossing;
  bool afterTransit;
  double hours = 0;  ///< As `correctedHourAngle` gives them.
};

/// Finds the hours of all the events, in less time than one by one.
void correctHourAngles(std::span<Event> events);

[[nodiscard]] bool isLeapYear(int year);

/// Whole days since the winter solstice of the observer's hemisphere, from 0 on. `dayOfYear` from 1
/// to 366; latitude in degrees, north positive.
[[nodiscard]] int daysSinceSolstice(int dayOfYear, int year, double latitude);

}  // namespace Adhan::Astronomical
