#pragma once

#include <cmath>
#include <compare>
#include <numbers>

namespace Adhan {

/// A plane angle in degrees. Any value is kept as it is given; nothing is reduced to a full turn.
struct Angle {
  double degrees = 0;

  [[nodiscard]] static constexpr Angle fromRadians(double radians) {
    return {radians * (180 / std::numbers::pi)};
  }
  [[nodiscard]] constexpr double radians() const { return degrees * (std::numbers::pi / 180); }

  /// The same direction in [0, 360). Within the last bits below 0 doubles round it to 360 itself.
  [[nodiscard]] Angle unwound() const { return {degrees - 360 * std::floor(degrees / 360)}; }

  /// The same direction in [-180, 180].
  [[nodiscard]] Angle quadrantShifted() const {
    if (std::abs(degrees) <= 180) return *this;
    return {degrees - 360 * std::round(degrees / 360)};
  }

  friend constexpr auto operator<=>(const Angle&, const Angle&) = default;
};

constexpr Angle operator+(Angle one, Angle other) {
  return {one.degrees + other.degrees};
}
constexpr Angle operator-(Angle one, Angle other) {
  return {one.degrees - other.degrees};
}
constexpr Angle operator-(Angle angle) {
  return {-angle.degrees};
}
constexpr Angle operator*(Angle angle, double factor) {
  return {angle.degrees * factor};
}
constexpr Angle operator*(double factor, Angle angle) {
  return {factor * angle.degrees};
}
constexpr Angle operator/(Angle angle, double divisor) {
  return {angle.degrees / divisor};
}

inline double sin(Angle angle) {
  return std::sin(angle.radians());
}
inline double cos(Angle angle) {
  return std::cos(angle.radians());
}
inline double tan(Angle angle) {
  return std::tan(angle.radians());
}

/// NaN degrees for a sine or cosine outside [-1, 1].
inline Angle arcsin(double sine) {
  return Angle::fromRadians(std::asin(sine));
}
inline Angle arccos(double cosine) {
  return Angle::fromRadians(std::acos(cosine));
}
inline Angle arctan(double tangent) {
  return Angle::fromRadians(std::atan(tangent));
}
inline Angle arctan(double y, double x) {
  return Angle::fromRadians(std::atan2(y, x));
}

}  // namespace Adhan
