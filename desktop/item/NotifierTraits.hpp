#pragma once

#include <QString>

namespace Hilalor::Desktop {

/// What a bar makes of an item on D-Bus.
enum class NotifierDrawing {
  square,  ///< Squeezes every picture into a square.
  wide,    ///< Keeps a picture's width.
  label,   ///< Draws the item's label as text.
};

/// What is known of a bar that shows items on D-Bus.
struct NotifierTraits {
  NotifierDrawing drawing = NotifierDrawing::square;
  /// Its items are better than windows in the system tray of the same desktop.
  bool outdoesTray = false;

  /// By the name of the process that runs the bar, as the kernel keeps it: 15 bytes at most.
  [[nodiscard]] static NotifierTraits of(const QString& processName);

  friend bool operator==(const NotifierTraits&, const NotifierTraits&) = default;
};

}  // namespace Hilalor::Desktop
