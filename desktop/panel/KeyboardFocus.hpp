#pragma once

#include <xcb/xcb.h>

#include <optional>

class QWidget;

namespace Hilalor {

/// The window that has the keyboard, remembered to give it back. Only on X11, where some window
/// managers leave the keyboard to nobody when a window they do not manage goes.
class KeyboardFocus {
 public:
  KeyboardFocus();

  /// If the window or one that belongs to it has the keyboard now.
  void giveBackFrom(const QWidget& window) const;

 private:
  std::optional<xcb_window_t> before_;
};

}  // namespace Hilalor
