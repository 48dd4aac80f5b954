#include "Adhan/Qibla.hpp"
#include "tests/golden/Inputs.hpp"
#include "tests/golden/Kinds.hpp"

namespace Golden {

void checkQibla(const Json& row, Checks& checks) {
  const Adhan::Qibla qibla(coordinates(row));
  checks.nearOnCircle("direction", row.at("direction"), number(qibla.direction), 1e-6);
}

}  // namespace Golden
