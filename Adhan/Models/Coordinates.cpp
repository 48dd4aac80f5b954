#include "Adhan/Models/Coordinates.hpp"

#include <ostream>

namespace Adhan {

std::ostream& operator<<(std::ostream& out, const Coordinates& coordinates) {
  return out << coordinates.latitude << ", " << coordinates.longitude;
}

}  // namespace Adhan
