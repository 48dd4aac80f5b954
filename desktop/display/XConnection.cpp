#include "desktop/display/XConnection.hpp"

#include <QAbstractEventDispatcher>
#include <QGuiApplication>
#include <QScreen>
#include <QtMath>

namespace Hilalor::Desktop {
std::unique_ptr<XConnection> XConnection::open() {
  return isOnX11() ? ofEnvironment() : nullptr;
}

std::unique_ptr<XConnection> XConnection::ofEnvironment() {
  int screenNumber = 0;
  xcb_connection_t* connection = xcb_connect(nullptr, &screenNumber);
  if (xcb_connection_has_error(connection) != 0) {
    xcb_disconnect(connection);
    return nullptr;
  }
  return std::unique_ptr<XConnection>(new XConnection(connection, screenNumber));
}

XConnection::XConnection(xcb_connection_t* connection, int screenNumber)
    : connection_(connection),
      screenNumber_(screenNumber),
      screen_(screenNumbered(connection, screenNumber)) {}

XConnection::~XConnection() {
  *isAlive_ = false;
  notifier_.reset();
  xcb_disconnect(connection_);
}

xcb_atom_t XConnection::atom(std::string_view name) const {
  return Xcb::atom(connection_, name);
}

std::vector<std::uint32_t> XConnection::numbers(xcb_window_t window,
                                                std::string_view property) const {
  return Xcb::values<std::uint32_t>(connection_, window, atom(property));
}

std::string XConnection::text(xcb_window_t window, std::string_view property) const {
  const auto bytes = Xcb::values<char>(connection_, window, atom(property));
  return {bytes.begin(), bytes.end()};
}

void XConnection::watch(std::function<void(const xcb_generic_event_t&)> handler) {
  handler_ = std::move(handler);
  xcb_flush(connection_);
  notifier_ = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection_),
                                                QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated,
                   [this] { readEvents(xcb_poll_for_event); });
  // While an answer is waited for, events before it are taken off the socket, which then tells of
  // none of them: they would lie there until the next one comes.
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                   notifier_.get(), [this] { readEvents(xcb_poll_for_queued_event); });
}

void XConnection::readEvents(xcb_generic_event_t* (*next)(xcb_connection_t*)) {
  const auto isAlive = isAlive_;
  const auto handler = handler_;
  while (*isAlive) {
    const Xcb::Owned<xcb_generic_event_t> event(next(connection_));
    if (!event) break;
    handler(*event);
  }
  // A server that has gone leaves the socket readable for ever.
  if (*isAlive && xcb_connection_has_error(connection_) != 0) notifier_->setEnabled(false);
}

const xcb_screen_t* screenNumbered(xcb_connection_t* connection, int number) {
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
  for (; screens.rem > 1 && number > 0; --number)
    xcb_screen_next(&screens);
  return screens.data;
}

bool isOnX11() {
  // Qt's platform without a display has the interface, and no connection.
  const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 != nullptr && x11->connection() != nullptr;
}

xcb_connection_t* qtConnection() {
  return qApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
}

Point logicalPoint(double x, double y) {
  return logicalRect({x, y, 0, 0}).origin;
}

Rect logicalRect(const QRectF& native) {
  const QPoint middle(qFloor(native.center().x()), qFloor(native.center().y()));
  for (const QScreen* screen : QGuiApplication::screens()) {
    if (nativeFrame(*screen).contains(middle)) return logicalRect(native, *screen);
  }
  return {{native.x(), native.y()}, {native.width(), native.height()}};
}

Rect logicalRect(const QRectF& native, const QScreen& screen) {
  const double ratio = screen.devicePixelRatio();
  const QPointF corner = screen.geometry().topLeft();
  const QPointF origin = corner + (native.topLeft() - corner) / ratio;
  return {{origin.x(), origin.y()}, {native.width() / ratio, native.height() / ratio}};
}

QRect nativeFrame(const QScreen& screen) {
  return {screen.geometry().topLeft(), screen.geometry().size() * screen.devicePixelRatio()};
}

}  // namespace Hilalor::Desktop
