#include "desktop/display/XConnection.hpp"

#include <QGuiApplication>
#include <QScreen>
#include <QtMath>

namespace Hilalor::Desktop {
namespace {

const xcb_screen_t* screenOf(xcb_connection_t* connection, int number) {
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
  for (; number > 0; --number)
    xcb_screen_next(&screens);
  return screens.data;
}

}  // namespace

std::unique_ptr<XConnection> XConnection::open() {
  if (!isOnX11()) return nullptr;
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
      screen_(screenOf(connection, screenNumber)) {}

XConnection::~XConnection() {
  *isAlive_ = false;
  notifier_.reset();
  xcb_disconnect(connection_);
}

xcb_atom_t XConnection::atom(std::string_view name) const {
  const auto cookie =
      xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data());
  const auto reply = Xcb::answer(xcb_intern_atom_reply, connection_, cookie);
  return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::vector<std::uint32_t> XConnection::numbers(xcb_window_t window,
                                                std::string_view property) const {
  return values<std::uint32_t>(window, property);
}

std::string XConnection::text(xcb_window_t window, std::string_view property) const {
  const auto bytes = values<char>(window, property);
  return {bytes.begin(), bytes.end()};
}

template <typename Value>
std::vector<Value> XConnection::values(xcb_window_t window, std::string_view property) const {
  constexpr std::uint32_t kMost = 4096;
  const auto cookie =
      xcb_get_property(connection_, 0, window, atom(property), XCB_GET_PROPERTY_TYPE_ANY, 0, kMost);
  const auto reply = Xcb::answer(xcb_get_property_reply, connection_, cookie);
  if (!reply || reply->format != 8 * sizeof(Value)) return {};
  const auto* first = static_cast<const Value*>(xcb_get_property_value(reply.get()));
  return {first, first + reply->value_len};
}

void XConnection::watch(std::function<void(const xcb_generic_event_t&)> handler) {
  handler_ = std::move(handler);
  xcb_flush(connection_);
  notifier_ = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection_),
                                                QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { readEvents(); });
}

void XConnection::readEvents() {
  const auto isAlive = isAlive_;
  const auto handler = handler_;
  while (*isAlive) {
    const Xcb::Owned<xcb_generic_event_t> event(xcb_poll_for_event(connection_));
    if (!event) break;
    handler(*event);
  }
  // A server that has gone leaves the socket readable for ever.
  if (*isAlive && xcb_connection_has_error(connection_) != 0) notifier_->setEnabled(false);
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
  const QPointF at = native.topLeft();
  const QPoint middle(qFloor(native.center().x()), qFloor(native.center().y()));
  // Qt keeps a screen's corner in the server's pixels and scales what lies within.
  for (const QScreen* screen : QGuiApplication::screens()) {
    const double ratio = screen->devicePixelRatio();
    const QPointF corner = screen->geometry().topLeft();
    const QRect whole(screen->geometry().topLeft(), screen->geometry().size() * ratio);
    if (!whole.contains(middle)) continue;
    return {
        {corner.x() + (at.x() - corner.x()) / ratio, corner.y() + (at.y() - corner.y()) / ratio},
        {native.width() / ratio, native.height() / ratio}};
  }
  return {{at.x(), at.y()}, {native.width(), native.height()}};
}

}  // namespace Hilalor::Desktop
