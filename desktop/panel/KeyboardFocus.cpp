#include "desktop/panel/KeyboardFocus.hpp"

#include <QWidget>

#include "desktop/XConnection.hpp"

namespace Hilalor {
namespace {

std::optional<xcb_window_t> focusedWindow() {
  if (!isOnX11()) return std::nullopt;
  xcb_connection_t* connection = qtConnection();
  const auto reply =
      Xcb::answer(xcb_get_input_focus_reply, connection, xcb_get_input_focus(connection));
  if (!reply) return std::nullopt;
  return reply->focus;
}

}  // namespace

KeyboardFocus::KeyboardFocus() : before_(focusedWindow()) {}

void KeyboardFocus::giveBackFrom(const QWidget& window) const {
  const auto now = focusedWindow();
  if (!before_ || !now) return;
  const QWidget* focused = QWidget::find(*now);
  if (focused == nullptr || (focused != &window && focused->parentWidget() != &window)) return;
  // A window that has gone meanwhile is no error of Qt's.
  Xcb::ignoreFailure(qtConnection(),
                     xcb_set_input_focus_checked(qtConnection(), XCB_INPUT_FOCUS_PARENT, *before_,
                                                 XCB_CURRENT_TIME));
  xcb_flush(qtConnection());
}

}  // namespace Hilalor
