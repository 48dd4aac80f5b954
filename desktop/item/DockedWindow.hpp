#pragma once

#include <xcb/xcb.h>

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <optional>

namespace Hilalor {

/// A window of this program inside the system tray, as the display has it. All lengths are in
/// device pixels. A window that has gone answers nothing.
class DockedWindow {
 public:
  /// `xembedInfo` is the atom of that name. The screen must be the connection's.
  DockedWindow(xcb_connection_t* connection, const xcb_screen_t& screen, xcb_window_t window,
               xcb_atom_t xembedInfo);

  [[nodiscard]] xcb_window_t window() const { return window_; }

  enum class Wish { hidden, shown };

  /// Lets the tray know whether the window is to be seen.
  void tell(Wish wish) const;

  /// Asks the tray for that much room.
  void askForSize(const QSize& size) const;

  [[nodiscard]] bool isOnScreen() const;

  /// Where its top left corner is on the screen.
  [[nodiscard]] std::optional<QPoint> place() const;

  /// What the tray paints behind the window, if that is opaque; none while it is not on the screen.
  /// Clears the window.
  [[nodiscard]] std::optional<QImage> backdrop(const QSize& size) const;

  /// The left end of the window, which a title leaves free, as the eye sees it with the bar through
  /// a transparent window; none outside the screen.
  [[nodiscard]] std::optional<QImage> leftEnd(int height) const;

 private:
  [[nodiscard]] std::optional<QImage> image(xcb_window_t window, const QRect& part) const;

  xcb_connection_t* connection_;
  const xcb_screen_t* screen_;
  xcb_window_t window_;
  xcb_atom_t xembedInfo_;
};

}  // namespace Hilalor
