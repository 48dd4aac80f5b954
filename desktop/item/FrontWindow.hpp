#pragma once

#include <QTimer>
#include <memory>
#include <optional>
#include <vector>

#include "desktop/display/XConnection.hpp"
#include "platform/Geometry.hpp"
#include "platform/Signal.hpp"

namespace Hilalor::Desktop {

/// The window in front on the main screen, as far as it matters to what lies on the screen's edge.
struct FrontWindow {
  enum class Extent {
    ordinary,    ///< Or there is no window.
    fullHeight,  ///< Maximised, or over one half of the screen.
    fullScreen,  ///< Nothing else is to be seen.
  };

  Extent extent = Extent::ordinary;
  /// With what the window manager draws around it, in logical pixels.
  Rect frame;
  /// Of the window manager's title bar, in logical pixels; 0 where the program draws its own.
  double titleHeight = 0;

  friend bool operator==(const FrontWindow&, const FrontWindow&) = default;
};

/// Watches which window of other programs is in front, by the X server's events. Main thread.
class FrontWindowWatch {
 public:
  /// Null where the program is not on X11.
  [[nodiscard]] static std::unique_ptr<FrontWindowWatch> open();

  [[nodiscard]] const FrontWindow& front() const { return front_; }

  /// After `front` has become another.
  Signal<> changed;

 private:
  struct Found {
    xcb_window_t id = XCB_WINDOW_NONE;
    FrontWindow window;
  };

  explicit FrontWindowWatch(std::unique_ptr<XConnection> server);
  void handle(const xcb_generic_event_t& event);
  void look();
  void follow(xcb_window_t window);
  [[nodiscard]] Found find() const;
  [[nodiscard]] bool isInFront(xcb_window_t window) const;
  [[nodiscard]] FrontWindow described(xcb_window_t window) const;
  [[nodiscard]] std::vector<xcb_window_t> clients() const;
  [[nodiscard]] bool isScreenCovered() const;
  [[nodiscard]] bool has(xcb_window_t window, const char* property, xcb_atom_t value) const;
  [[nodiscard]] std::optional<Rect> rect(xcb_window_t window) const;

  std::unique_ptr<XConnection> server_;
  struct {
    xcb_atom_t stacking, active, desktop, state;
    xcb_atom_t fullScreen, hidden, maximised;
    xcb_atom_t normal, backdrop;
  } atoms_;
  QTimer lookSoon_;
  xcb_window_t followed_ = XCB_WINDOW_NONE;
  FrontWindow front_;
};

}  // namespace Hilalor::Desktop
