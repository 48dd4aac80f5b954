#include "Adhan/Astronomy/SolarCoordinates.hpp"

#include "Adhan/Astronomy/Astronomical.hpp"

namespace Adhan {

// J. Meeus, "Astronomical Algorithms", 2nd ed., ch. 12 and 25.
SolarCoordinates::SolarCoordinates(double julianDay) {
  using namespace Astronomical;
  const double T = julianCentury(julianDay);
  const Angle solarLongitude = meanSolarLongitude(T);
  const Angle lunarLongitude = meanLunarLongitude(T);
  const Angle node = ascendingLunarNodeLongitude(T);
  const Angle apparentLongitude = apparentSolarLongitude(T, solarLongitude);
  const Angle obliquity = meanObliquityOfTheEcliptic(T);
  const Angle apparentObliquity = apparentObliquityOfTheEcliptic(T, obliquity);
  const Nutation sway = nutation(solarLongitude, lunarLongitude, node);

  declination = arcsin(sin(apparentObliquity) * sin(apparentLongitude));
  rightAscension =
      arctan(cos(apparentObliquity) * sin(apparentLongitude), cos(apparentLongitude)).unwound();
  apparentSiderealTime =
      meanSiderealTime(T) + sway.inLongitude * 3600 * cos(obliquity + sway.inObliquity) / 3600;
}

}  // namespace Adhan
