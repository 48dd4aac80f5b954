#pragma once

#include "platform/Geometry.hpp"

namespace Hilalor {

/// Light or dark; `system` is as the desktop is.
enum class Appearance { system, light, dark };

/// Who has the keyboard when a panel opens.
enum class KeyboardAtOpening { leftWhereItIs, taken };

/// A surface with a screen in it that floats above other windows, with rounded corners and no
/// title bar. Closes when this object goes. Main thread.
class Panel {
 public:
  virtual ~Panel() = default;

  /// The size that the screen in it wants, of its greatest height at most.
  [[nodiscard]] virtual Size fittingSize() const = 0;

  virtual void setGreatestHeight(double height) = 0;

  [[nodiscard]] virtual bool isVisible() const = 0;

  virtual void setAppearance(Appearance appearance) = 0;

  /// Moves and resizes it; the screen in it fills it.
  virtual void setFrame(const Rect& frame) = 0;

  virtual void orderFront(KeyboardAtOpening keyboard) = 0;
};

/// An ordinary window. Closes when this object goes. Main thread.
class Window {
 public:
  virtual ~Window() = default;

  virtual void setAppearance(Appearance appearance) = 0;

  /// Brings it to the front and gives it the keyboard.
  virtual void makeKeyAndOrderFront() = 0;
};

}  // namespace Hilalor
