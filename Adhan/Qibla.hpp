#pragma once

#include "Adhan/Models/Coordinates.hpp"

namespace Adhan {

/// The direction of prayer: where the great circle to the Kaaba leaves the place.
struct Qibla {
  explicit Qibla(const Coordinates& coordinates);

  /// Degrees clockwise from true north, in [0, 360) but for the last bit: a hair west of north can
  /// round to 360 itself. NaN for a place that is none.
  double direction = 0;
};

}  // namespace Adhan
