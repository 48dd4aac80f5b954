#include "desktop/panel/KeyboardFocus.hpp"

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include "desktop/display/DisplayKind.hpp"
#include "desktop/display/XConnection.hpp"

namespace Hilalor::Desktop {
namespace {

std::optional<xcb_window_t> focusedWindow() {
  // Elsewhere the compositor gives it back.
  if (!isOnX11() || displayKind() != DisplayKind::x11) return std::nullopt;
  xcb_connection_t* connection = qtConnection();
  const auto reply =
      Xcb::answer(xcb_get_input_focus_reply, connection, xcb_get_input_focus(connection));
  if (!reply) return std::nullopt;
  return reply->focus;
}

/// Whether the window could be given it.
bool give(xcb_window_t window) {
  const auto request =
      xcb_set_input_focus_checked(qtConnection(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
  const Xcb::Owned<xcb_generic_error_t> failure(xcb_request_check(qtConnection(), request));
  return failure == nullptr;
}

}  // namespace

KeyboardFocus::KeyboardFocus(const QWidget& taker) : taker_(taker) {
  qApp->installEventFilter(this);
}

void KeyboardFocus::rememberOwner() {
  if (const auto now = focusedWindow(); now && !isTakers(*now)) owner_ = now;
}

void KeyboardFocus::giveBack() const {
  const auto now = focusedWindow();
  if (!owner_ || !now || !isTakers(*now)) return;
  // One that has gone, or is hidden, cannot have it. The window under the pointer is better than
  // none.
  if (!give(*owner_)) give(XCB_INPUT_FOCUS_POINTER_ROOT);
}

bool KeyboardFocus::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress && watched->isWindowType()) rememberOwner();
  return QObject::eventFilter(watched, event);
}

bool KeyboardFocus::isTakers(xcb_window_t window) const {
  const QWidget* focused = QWidget::find(window);
  return focused != nullptr && (focused == &taker_ || focused->parentWidget() == &taker_);
}

}  // namespace Hilalor::Desktop
