#pragma once

#include "platform/Atlas.hpp"
#include "platform/Geocoder.hpp"
#include "platform/RunLoop.hpp"

namespace Hilalor::Screens {

/// What the map picker works with.
struct MapContext {
  RunLoop& loop;
  Atlas& atlas;
  Geocoder& geocoder;
};

}  // namespace Hilalor::Screens
