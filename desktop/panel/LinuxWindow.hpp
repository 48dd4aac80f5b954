#pragma once

#include <functional>
#include <memory>

#include "platform/Panel.hpp"

class QWidget;

namespace Hilalor::Desktop {

/// What a window is made with.
struct WindowProperties {
  const char* title = "";  ///< UTF-8.
  Size contentSize;
  Size minimumSize;
};

/// An ordinary window that cannot be minimised, above normal ones, centred on the screen.
class LinuxWindow final : public Window {
 public:
  /// Takes the screen over, with its icon. `onWillClose` is told when the user closes the window,
  /// and may destroy this object.
  LinuxWindow(std::unique_ptr<QWidget> screen, const WindowProperties& properties,
              std::function<void()> onWillClose);
  ~LinuxWindow() override;

  // Window
  void setAppearance(Appearance appearance) override;
  void makeKeyAndOrderFront() override;

 private:
  class Frame;

  // Qt's own, deleted by it when it is done with the event that ends the window.
  Frame* frame_;
};

}  // namespace Hilalor::Desktop
