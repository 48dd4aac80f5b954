#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <optional>

#include "desktop/item/ItemFace.hpp"
#include "desktop/item/ItemPresence.hpp"
#include "desktop/item/SystemTray.hpp"
#include "platform/RunLoop.hpp"

namespace Hilalor::Desktop {

/// The item as a window inside the system tray: the whole title where the tray shows the width for
/// it, else a square.
class TrayWindow : public QObject, public ItemPresence {
 public:
  /// `refused` is told, once, when nothing of the window is seen in the tray after a second, or the
  /// tray no longer holds it. It may destroy this object.
  TrayWindow(SystemTray& tray, RunLoop& loop, const ItemContent& content,
             const ItemPainter& painter, std::function<void()> refused);
  ~TrayWindow() override;

  void titleChanged() override;
  void lookAround() override;
  [[nodiscard]] std::optional<Rect> place() const override { return face_.place(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void show();
  [[nodiscard]] QSize sizeToAskFor(int height) const;
  void askForRoom(const DockedPlace& place);
  void waitForAnswer();
  void lookAtRoomLater();
  void lookAtRoom();
  void useRoom(const DockedPlace& place);
  void judge();
  [[nodiscard]] bool holdsWholeTitle(const DockedPlace& place) const;
  void draw(const DockedPlace& place);
  void matchBar();
  [[nodiscard]] std::optional<QColor> lookAtBar();
  [[nodiscard]] std::optional<QRect> placeInTray() const;
  void refuse();

  SystemTray& tray_;
  RunLoop& loop_;
  std::function<void()> refused_;
  bool isTransparent_;
  std::optional<QColor> trayText_;
  ItemFace face_;
  std::optional<DockedWindow> window_;
  QSize asked_;
  /// Where it was when its room was last looked at; none while the tray is at it.
  std::optional<DockedPlace> seen_;
  /// Of a tray that did not give the width asked for: it is not asked again until this changes.
  std::optional<QSize> refusingRoom_;
  int titlesTold_ = 0;
  Subscription embedded_;
  Subscription expelled_;
  Subscription coloursChanged_;
  /// While the tray may still answer.
  std::unique_ptr<Timer> patience_;
  bool wasShown_ = false;
  bool isToLookAtRoom_ = false;
  std::unique_ptr<Timer> secondLook_;
};

}  // namespace Hilalor::Desktop
