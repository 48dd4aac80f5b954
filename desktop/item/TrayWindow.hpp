#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <optional>

#include "desktop/item/ItemFace.hpp"
#include "desktop/item/ItemPresence.hpp"
#include "desktop/item/SystemTray.hpp"
#include "platform/RunLoop.hpp"

namespace Hilalor {

/// The item as a window inside the system tray.
class TrayWindow : public QObject, public ItemPresence {
 public:
  /// `refused` is told, once, when the tray has not shown the window within a second or no longer
  /// holds it. It may destroy this object.
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
  void askForRoom();
  void useRoomGiven();
  void matchBar();
  [[nodiscard]] std::optional<QImage> lookAtBar();
  [[nodiscard]] std::optional<QRect> placeInTray() const;
  void refuse();

  SystemTray& tray_;
  RunLoop& loop_;
  std::function<void()> refused_;
  bool isTransparent_;
  std::optional<QColor> trayText_;
  ItemFace face_;
  std::optional<DockedWindow> window_;
  /// What the tray gives for each pixel of width asked for; some scale windows to their bar.
  double stretch_ = 1.0;
  int askedWidth_;
  int titlesTold_ = 0;
  Subscription embedded_;
  Subscription expelled_;
  Subscription coloursChanged_;
  std::unique_ptr<Timer> patience_;
  std::unique_ptr<Timer> secondLook_;
};

}  // namespace Hilalor
