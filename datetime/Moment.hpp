#pragma once

#include "datetime/Date.hpp"
#include "datetime/Region.hpp"
#include "datetime/TimeZone.hpp"

namespace Hilalor {

/// An instant, with the zone of the machine and the region of the user as they were at it. Taken
/// once per operation and handed down, so that all parts of an answer agree.
struct Moment {
  Date now;
  TimeZone zone;
  Region region;

  /// With the zone and the region that hold as it is called.
  [[nodiscard]] static Moment at(Date now) { return {now, TimeZone::current(), Region::current()}; }
};

}  // namespace Hilalor
