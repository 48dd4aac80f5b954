#pragma once

#include <xcb/xcb.h>

#include <QColor>
#include <QImage>
#include <QRect>
#include <QSize>
#include <optional>

#include "desktop/item/DockedPlace.hpp"

namespace Hilalor::Desktop {

/// A window of this program inside the system tray, as the display has it. All lengths are in
/// device pixels. A window that has gone answers nothing.
class DockedWindow {
 public:
  /// `xembedInfo` is the atom of that name. The screen must be the connection's.
  DockedWindow(xcb_connection_t* connection, const xcb_screen_t& screen, xcb_window_t window,
               xcb_atom_t xembedInfo);

  [[nodiscard]] xcb_window_t window() const { return window_; }

  /// Lets the tray know that the window is to be seen as soon as it is in it.
  void wishToBeShown() const;

  /// Asks the tray for that much room. The window itself has the size at once, whatever is seen of
  /// it.
  void askForSize(const QSize& size) const;

  /// Gives the window a size without asking the tray.
  void resize(const QSize& size) const;

  /// What the window has by now, be it from the tray or from us.
  [[nodiscard]] std::optional<QSize> size() const;

  /// None while the window is not shown, or stands in no tray.
  [[nodiscard]] std::optional<DockedPlace> place() const;

  /// What the tray paints behind the window, if that is opaque; none while it is not on the screen.
  /// Clears the window.
  [[nodiscard]] std::optional<QImage> backdrop(const QSize& size) const;

  /// The colour of the bar, from what the eye sees close around the window and of so many columns
  /// at its ends that are left free; none where nothing of the bar is seen there.
  [[nodiscard]] std::optional<QColor> colourAround(const DockedPlace& place, int freeAtEnds) const;

 private:
  void forgetProperties() const;
  [[nodiscard]] std::optional<xcb_window_t> parent(xcb_window_t window) const;
  [[nodiscard]] std::optional<QRect> rectOnScreen(xcb_window_t window) const;
  [[nodiscard]] bool isShown() const;
  [[nodiscard]] std::optional<QImage> image(xcb_window_t window, const QRect& part) const;

  xcb_connection_t* connection_;
  const xcb_screen_t* screen_;
  xcb_window_t window_;
  xcb_atom_t xembedInfo_;
};

}  // namespace Hilalor::Desktop
