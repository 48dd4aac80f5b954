#pragma once

#include <functional>
#include <memory>

#include "desktop/panel/BareDesktop.hpp"
#include "desktop/panel/EscapeKey.hpp"
#include "desktop/panel/FocusLoss.hpp"
#include "desktop/panel/KeyboardFocus.hpp"
#include "platform/Panel.hpp"
#include "platform/Surfaces.hpp"

class QWidget;

namespace Hilalor::Ui {
class View;
}

namespace Hilalor::Desktop {

class PanelRoom;
class PanelWindow;

/// A panel of our own window.
class LinuxPanel final : public Panel {
 public:
  /// Takes the screen over. `onDismiss` may destroy the panel.
  LinuxPanel(std::unique_ptr<Ui::View> screen, std::function<void(Dismissal)> onDismiss);
  ~LinuxPanel() override;

  // Panel
  [[nodiscard]] Size fittingSize() const override;
  void setGreatestHeight(double height) override;
  [[nodiscard]] bool isVisible() const override;
  void setAppearance(Appearance appearance) override;
  void setFrame(const Rect& frame) override;
  void orderFront(KeyboardAtOpening keyboard) override;

 private:
  // What closes it: another window at its place or, under a compositor, the loss of the keyboard.
  void watchItsPlace();
  void watchItsKeyboard();
  void makeRoomForAnnouncements();

  Ui::View* screen_;
  std::function<void(Dismissal)> onDismiss_;
  // Qt's own, deleted by it when it is done with the event that ends the panel.
  PanelWindow* window_;
  std::unique_ptr<PanelRoom> room_;
  KeyboardFocus keyboard_;
  std::unique_ptr<EscapeKey> escape_;
  // Where presses elsewhere are not told.
  std::unique_ptr<FocusLoss> focusLoss_;
  std::unique_ptr<BareDesktop> bareDesktop_;
};

}  // namespace Hilalor::Desktop
