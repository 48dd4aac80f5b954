#pragma once

#include <QRect>

namespace Hilalor::Desktop {

/// Where a window inside a tray stands on the screen, in device pixels. What it says of its own
/// size means little: the eye has of it what the tray's windows around it leave.
struct DockedPlace {
  QRect window;
  QRect room;  ///< What all the windows around it have in common; may be empty.
  QRect bar;   ///< The outermost window around it.
  QRect screen;

  /// A bar that hides waits outside the screen, and its windows in it.
  [[nodiscard]] bool isBarHidden() const { return !bar.intersects(screen); }

  /// The part of the window that is seen whenever its bar is; empty if there is none.
  [[nodiscard]] QRect visible() const {
    const QRect inBar = window & room;
    return isBarHidden() ? inBar : inBar & screen;
  }

  friend bool operator==(const DockedPlace&, const DockedPlace&) = default;
};

}  // namespace Hilalor::Desktop
