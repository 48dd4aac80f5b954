#pragma once

#include <iosfwd>

namespace Adhan {

/// A place on the earth. Nothing is checked: the formulas take any number.
struct Coordinates {
  double latitude = 0;   ///< Degrees, north positive.
  double longitude = 0;  ///< Degrees, east positive.

  friend bool operator==(const Coordinates&, const Coordinates&) = default;
};

/// As "24.6877, 46.7219", for test failures.
std::ostream& operator<<(std::ostream& out, const Coordinates& coordinates);

}  // namespace Adhan
