#include "desktop/panel/BareDesktop.hpp"

#include <QScreen>
#include <utility>

#include "desktop/display/DisplayKind.hpp"
#include "desktop/display/XConnection.hpp"

namespace Hilalor::Desktop {
namespace {

/// Else GNOME announces it as a window that waits behind others. To be done before it is shown.
void leaveTaskbar(xcb_window_t window) {
  const auto server = XConnection::open();
  if (!server) return;
  const xcb_atom_t state = server->atom("_NET_WM_STATE_SKIP_TASKBAR");
  xcb_change_property(qtConnection(), XCB_PROP_MODE_REPLACE, window, server->atom("_NET_WM_STATE"),
                      XCB_ATOM_ATOM, 32, 1, &state);
}

}  // namespace

std::unique_ptr<BareDesktop> BareDesktop::watch(std::function<void()> onPress) {
  if (displayKind() != DisplayKind::xwayland || !isDesktop("GNOME")) return nullptr;
  return std::unique_ptr<BareDesktop>(new BareDesktop(std::move(onPress)));
}

BareDesktop::BareDesktop(std::function<void()> onPress)
    : QWidget(nullptr, Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus),
      onPress_(std::move(onPress)) {
  setAttribute(Qt::WA_X11NetWmWindowTypeDesktop);
  setAttribute(Qt::WA_TranslucentBackground);
  setAttribute(Qt::WA_ShowWithoutActivating);
  // GNOME hides its bar for a window as large as the screen; the first row is the bar's anyway.
  setGeometry(screen()->virtualGeometry().adjusted(0, 1, 0, 0));
  leaveTaskbar(static_cast<xcb_window_t>(winId()));
  show();
}

void BareDesktop::mousePressEvent(QMouseEvent*) {
  // Not before the event is done with this window.
  QMetaObject::invokeMethod(
      this, [told = onPress_] { told(); }, Qt::QueuedConnection);
}

}  // namespace Hilalor::Desktop
