#pragma once

#include <xcb/xcb.h>

#include <QRect>
#include <QRectF>
#include <QSocketNotifier>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/display/Xcb.hpp"
#include "platform/Geometry.hpp"

class QScreen;

namespace Hilalor::Desktop {

/// A connection of our own to the X server, so that what it is asked to report comes to us and not
/// through Qt.
class XConnection {
 public:
  /// Null where the program is not on X11.
  [[nodiscard]] static std::unique_ptr<XConnection> open();

  /// To the display that the environment names, also before there is an application. Null where
  /// none answers.
  [[nodiscard]] static std::unique_ptr<XConnection> ofEnvironment();

  ~XConnection();
  XConnection(const XConnection&) = delete;
  XConnection& operator=(const XConnection&) = delete;

  [[nodiscard]] xcb_connection_t* get() const { return connection_; }
  [[nodiscard]] const xcb_screen_t& screen() const { return *screen_; }
  [[nodiscard]] xcb_window_t root() const { return screen_->root; }
  [[nodiscard]] int screenNumber() const { return screenNumber_; }

  /// The window's property as 32-bit numbers; empty where it has none.
  [[nodiscard]] std::vector<std::uint32_t> numbers(xcb_window_t window,
                                                   std::string_view property) const;

  /// The window's property as text; empty where it has none.
  [[nodiscard]] std::string text(xcb_window_t window, std::string_view property) const;

  [[nodiscard]] xcb_atom_t atom(std::string_view name) const;

  /// Calls the handler for every event, on the main thread, from now on. The handler may destroy
  /// the connection.
  void watch(std::function<void(const xcb_generic_event_t&)> handler);

 private:
  XConnection(xcb_connection_t* connection, int screenNumber);
  void readEvents(xcb_generic_event_t* (*next)(xcb_connection_t*));

  xcb_connection_t* connection_;
  int screenNumber_;
  const xcb_screen_t* screen_;
  std::function<void(const xcb_generic_event_t&)> handler_;
  std::unique_ptr<QSocketNotifier> notifier_;
  std::shared_ptr<bool> isAlive_ = std::make_shared<bool>(true);
};

/// The display's screen of that number.
[[nodiscard]] const xcb_screen_t* screenNumbered(xcb_connection_t* connection, int number);

/// Whether the program is on X11.
[[nodiscard]] bool isOnX11();

/// Qt's own connection; only on X11.
[[nodiscard]] xcb_connection_t* qtConnection();

/// The logical point of one in the X server's pixels.
[[nodiscard]] Point logicalPoint(double x, double y);

/// The logical rectangle of one in the X server's pixels, by the screen that its middle is on.
[[nodiscard]] Rect logicalRect(const QRectF& native);
[[nodiscard]] Rect logicalRect(const QRectF& native, const QScreen& screen);

/// The screen's rectangle in the server's pixels; Qt leaves its corner there unscaled.
[[nodiscard]] QRect nativeFrame(const QScreen& screen);

}  // namespace Hilalor::Desktop
