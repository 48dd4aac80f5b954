#pragma once

#include <functional>
#include <memory>

#include "platform/Geometry.hpp"

namespace Hilalor {

/// Watches for as long as it lives.
class EventMonitor {
 public:
  virtual ~EventMonitor() = default;
};

/// Lets the program see presses of the left and right mouse button over other programs and the
/// desktop. Those programs get them all the same. Main thread.
class MouseMonitor {
 public:
  struct Handlers {
    std::function<void(Point)> onPress;  ///< Not told for the program's own windows.
    std::function<void()> onRelease;     ///< After any press, wherever it was.
  };

  virtual ~MouseMonitor() = default;

  /// Null where the desktop does not let a program see them.
  [[nodiscard]] virtual std::unique_ptr<EventMonitor> addGlobalMonitor(Handlers handlers) = 0;
};

}  // namespace Hilalor
