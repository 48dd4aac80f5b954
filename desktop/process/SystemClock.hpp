#pragma once

#include <chrono>

#include "platform/Clock.hpp"

namespace Hilalor::Desktop {

/// The machine's own clock.
class SystemClock : public Clock {
 public:
  [[nodiscard]] Date now() const override {
    return {Seconds(std::chrono::system_clock::now().time_since_epoch()).count()};
  }
};

}  // namespace Hilalor::Desktop
