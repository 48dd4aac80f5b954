#include "desktop/panel/KeyboardFocus.hpp"

#include <QWidget>

#include "desktop/panel/XConnection.hpp"

namespace Hilalor {
namespace {

std::optional<xcb_window_t> focusedWindow() {
  if (!isOnX11()) return std::nullopt;
  xcb_connection_t* connection = qtConnection();
  const XReply<xcb_get_input_focus_reply_t> reply(
      xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
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
  // Checked, so that a window that has gone meanwhile is no error of Qt's.
  const auto cookie = xcb_set_input_focus_checked(qtConnection(), XCB_INPUT_FOCUS_PARENT, *before_,
                                                  XCB_CURRENT_TIME);
  const XReply<xcb_generic_error_t> error(xcb_request_check(qtConnection(), cookie));
}

}  // namespace Hilalor
