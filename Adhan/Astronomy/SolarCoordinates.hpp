#pragma once

#include "Adhan/Units/Angle.hpp"

namespace Adhan {

/// Where the sun stands among the stars at one instant.
struct SolarCoordinates {
  /// For any Julian day; NaN runs through.
  explicit SolarCoordinates(double julianDay);

  Angle declination;           ///< North positive.
  Angle rightAscension;        ///< In [0, 360).
  Angle apparentSiderealTime;  ///< At Greenwich; not reduced to a full turn.

  friend bool operator==(const SolarCoordinates&, const SolarCoordinates&) = default;
};

}  // namespace Adhan
