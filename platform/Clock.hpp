#pragma once

#include "datetime/Date.hpp"

namespace Hilalor {

/// Tells the time. Asked once per operation, which hands the instant down.
class Clock {
 public:
  virtual ~Clock() = default;

  [[nodiscard]] virtual Date now() const = 0;
};

}  // namespace Hilalor
