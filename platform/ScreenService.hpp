#pragma once

#include <vector>

#include "platform/Geometry.hpp"

namespace Hilalor {

struct Screen {
  Rect frame;
  Rect visibleFrame;  ///< Without the bars at its edges.
};

/// The screens of the machine. Main thread.
class ScreenService {
 public:
  virtual ~ScreenService() = default;

  /// As they are now, the main one first; empty while there is none.
  [[nodiscard]] virtual std::vector<Screen> all() const = 0;
};

}  // namespace Hilalor
