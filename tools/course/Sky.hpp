#pragma once

#include <optional>

namespace Sky {

/// Instants are seconds since 1970 UTC, angles degrees, north and east positive.
struct Place {
  double latitude = 0;
  double longitude = 0;
};

/// The sun by the short formulas of the Astronomical Almanac ("Low precision formulas for the
/// Sun"), good to a hundredth of a degree, at any instant. Nothing of it is the engine's.
[[nodiscard]] double declination(double instant);

/// How far the sun is past the meridian: from -180 to 180, 0 at noon.
[[nodiscard]] double hourAngle(const Place& place, double instant);

[[nodiscard]] double altitude(const Place& place, double instant);

/// The noon nearest to an instant that is at most some hours away from it.
[[nodiscard]] double noonNear(const Place& place, double instant);

/// When the sun passes the altitude between two instants between which it only rises or only sinks;
/// none when it does not.
[[nodiscard]] std::optional<double> passage(const Place& place, double altitude, double from,
                                            double until);

}  // namespace Sky
