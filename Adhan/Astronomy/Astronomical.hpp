#pragma once

#include "Adhan/Models/Coordinates.hpp"
#include "Adhan/Units/Angle.hpp"
#include "datetime/DateComponents.hpp"

/// The formulas of the sun's place in the sky, of low precision: a few seconds in the times of a
/// day between 1950 and 2100. From J. Meeus, "Astronomical Algorithms", 2nd ed.; the chapter stands
/// with each. T is always the Julian century. Pure functions of their arguments; NaN runs through.
namespace Adhan::Astronomical {

/// An angle at 0h UTC of three days in a row.
struct ThreeDays {
  Angle previous;
  Angle day;
  Angle next;
};

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

/// (ch. 22)
[[nodiscard]] Angle nutationInLongitude(Angle solarLongitude, Angle lunarLongitude,
                                        Angle ascendingNode);

/// (ch. 22)
[[nodiscard]] Angle nutationInObliquity(Angle solarLongitude, Angle lunarLongitude,
                                        Angle ascendingNode);

/// Of a body above the horizon, negative below (ch. 13).
[[nodiscard]] Angle altitudeOfCelestialBody(Angle latitude, Angle declination,
                                            Angle localHourAngle);

/// The transit over the meridian as a fraction of the day, in [0, 1), good to some minutes (ch.
/// 15). `longitude` east positive.
[[nodiscard]] double approximateTransit(Angle longitude, Angle siderealTime, Angle rightAscension);

/// The transit in hours of the day (ch. 15). Near the antimeridian it can lie below 0 or above 24.
[[nodiscard]] double correctedTransit(double approximateTransit, Angle longitude,
                                      Angle siderealTime, const ThreeDays& rightAscension);

/// The hours of the day at which a body stands at that altitude, before or after its transit
/// (ch. 15); any number of hours, not only those of the day. NaN when it never does on that day.
[[nodiscard]] double correctedHourAngle(double approximateTransit, Angle altitude,
                                        const Coordinates& observer, bool afterTransit,
                                        Angle siderealTime, const ThreeDays& rightAscension,
                                        const ThreeDays& declination);

/// The value at `factor` days after the middle one (ch. 3).
[[nodiscard]] Angle interpolate(const ThreeDays& values, double factor);

/// The same for an angle that grows through full turns; not reduced to [0, 360).
[[nodiscard]] Angle interpolateAngles(const ThreeDays& values, double factor);

[[nodiscard]] bool isLeapYear(int year);

/// Whole days since the winter solstice of the observer's hemisphere, from 0 on. `dayOfYear` from 1
/// to 366; latitude in degrees, north positive.
[[nodiscard]] int daysSinceSolstice(int dayOfYear, int year, double latitude);

}  // namespace Adhan::Astronomical
