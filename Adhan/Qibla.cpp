#include "Adhan/Qibla.hpp"

#include "Adhan/Units/Angle.hpp"

namespace Adhan {
namespace {

constexpr Coordinates kKaaba{21.4225241, 39.8261818};

}  // namespace

// Spherical trigonometry: J. Meeus, "Astronomical Algorithms", 2nd ed., ch. 13, with the Kaaba in
// the pole's place.
Qibla::Qibla(const Coordinates& coordinates) {
  const Angle latitude{coordinates.latitude};
  const Angle eastward = Angle{kKaaba.longitude} - Angle{coordinates.longitude};
  const double y = sin(eastward);
  const double x = cos(latitude) * tan({kKaaba.latitude}) - sin(latitude) * cos(eastward);
  direction = arctan(y, x).unwound().degrees;
}

}  // namespace Adhan
