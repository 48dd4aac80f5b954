#pragma once

#include "platform/Clock.hpp"

namespace Hilalor::Desktop {

/// The machine's own clock.
class SystemClock : public Clock {
 public:
  [[nodiscard]] Date now() const override;
};

}  // namespace Hilalor::Desktop
