#pragma once

#include <QObject>
#include <QRect>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "desktop/display/XConnection.hpp"

class QWidget;

namespace Hilalor::Desktop {

/// The rectangle moved sideways, on the shorter way, until it is clear of the other; no result
/// where there is no room for it.
[[nodiscard]] std::optional<QRect> movedBeside(const QRect& moving, const QRect& other,
                                               const QRect& room);

/// Watches, while the panel is open, for what comes up at its place though the panel is on top of
/// everything: windows of the program itself and the desktop's announcements. A window of ours
/// opens beside the panel where there is room. Main thread.
class PanelRoom final : public QObject {
 public:
  /// `onCovered` is told when a window of ours is opened or moved where the panel is,
  /// `onAnnouncement` when an announcement has come up or moved, wherever it is.
  PanelRoom(const QWidget& panel, std::function<QRect()> place, std::function<void()> onCovered,
            std::function<void()> onAnnouncement);

  /// The place moved clear of every announcement that came up while the panel was open; no result
  /// where there is no room for it.
  [[nodiscard]] std::optional<QRect> clearOfAnnouncements(QRect place) const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void openBeside(QWidget& window);
  void giveWayTo(const QRect& window);
  void watchAnnouncements();
  void handle(const xcb_generic_event_t& event);
  void lookForNewWindows();
  void note(xcb_window_t announcement);

  const QWidget& panel_;
  std::function<QRect()> place_;
  std::function<void()> onCovered_;
  std::function<void()> onAnnouncement_;
  std::unique_ptr<XConnection> server_;
  std::vector<xcb_window_t> known_;  // Every window that the window manager lists.
  std::map<xcb_window_t, QRect> announcements_;
};

}  // namespace Hilalor::Desktop
