#include "desktop/panel/PanelRoom.hpp"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace Hilalor::Desktop {
namespace {

// A window manager's frame and the panel's shadow lie between them.
constexpr int kGap = 12;

/// Whether it is a window that the user opens, and not a part of one, a menu or a panel.
bool isOpenedWindow(const QObject& watched) {
  if (!watched.isWidgetType()) return false;
  const auto& window = static_cast<const QWidget&>(watched);
  const Qt::WindowType type = window.windowType();
  const bool isOfUser = type == Qt::Window || type == Qt::Dialog || type == Qt::Sheet;
  return isOfUser && !window.windowFlags().testFlag(Qt::X11BypassWindowManagerHint);
}

/// Where it is or, before it is shown for the first time, will be: a dialog in the middle of its
/// owner.
QRect placeOf(const QWidget& window) {
  QRect place = window.frameGeometry();
  if (window.parentWidget() != nullptr && !window.testAttribute(Qt::WA_Moved))
    place.moveCenter(window.parentWidget()->window()->geometry().center());
  return place;
}

/// With what a window manager is about to put around it, unless that is known.
QRect withFrame(const QWidget& window, const QRect& place) {
  const bool isKnown = window.frameGeometry() != window.geometry();
  return isKnown ? place : place.adjusted(-kGap, -kGap, kGap, kGap);
}

}  // namespace

std::optional<QRect> movedBeside(const QRect& moving, const QRect& other, const QRect& room) {
  const int toLeft = other.left() - kGap - moving.width();
  const int toRight = other.right() + 1 + kGap;
  const bool fitsLeft = toLeft >= room.left();
  const bool fitsRight = toRight + moving.width() <= room.right() + 1;
  if (!fitsLeft && !fitsRight) return std::nullopt;
  const bool isLeftNearer = moving.left() - toLeft <= toRight - moving.left();
  QRect moved = moving;
  moved.moveLeft(fitsLeft && (isLeftNearer || !fitsRight) ? toLeft : toRight);
  return moved;
}

PanelRoom::PanelRoom(const QWidget& panel, std::function<QRect()> place,
                     std::function<void()> onCovered, std::function<void()> onAnnouncement)
    : panel_(panel),
      place_(std::move(place)),
      onCovered_(std::move(onCovered)),
      onAnnouncement_(std::move(onAnnouncement)),
      server_(XConnection::open()) {
  qApp->installEventFilter(this);
  if (server_) watchAnnouncements();
}

std::optional<QRect> PanelRoom::clearOfAnnouncements(QRect place) const {
  for (const auto& [window, announcement] : announcements_) {
    if (!announcement.intersects(place)) continue;
    const auto moved = movedBeside(place, announcement, panel_.screen()->availableGeometry());
    if (!moved) return std::nullopt;
    place = *moved;
  }
  return place;
}

bool PanelRoom::eventFilter(QObject* watched, QEvent* event) {
  if (!isOpenedWindow(*watched)) return false;
  auto& window = static_cast<QWidget&>(*watched);
  switch (event->type()) {
    case QEvent::Show:
      if (!event->spontaneous()) openBeside(window);
      break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::ZOrderChange:
      if (window.isVisible()) giveWayTo(window.frameGeometry());
      break;
    default:
      break;
  }
  return false;
}

void PanelRoom::openBeside(QWidget& window) {
  const QRect place = placeOf(window);
  if (!withFrame(window, place).intersects(place_())) return;
  const auto moved = movedBeside(place, place_(), panel_.screen()->availableGeometry());
  moved ? window.move(moved->topLeft()) : giveWayTo(place);
}

void PanelRoom::giveWayTo(const QRect& window) {
  if (!window.intersects(place_())) return;
  QMetaObject::invokeMethod(
      this, [told = onCovered_] { told(); }, Qt::QueuedConnection);
}

void PanelRoom::watchAnnouncements() {
  const std::uint32_t changes = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_change_window_attributes(server_->get(), server_->root(), XCB_CW_EVENT_MASK, &changes);
  known_ = server_->numbers(server_->root(), "_NET_CLIENT_LIST");
  server_->watch([this](const xcb_generic_event_t& event) { handle(event); });
}

void PanelRoom::handle(const xcb_generic_event_t& event) {
  constexpr std::uint8_t kSentByServer = 0x7f;
  switch (event.response_type & kSentByServer) {
    case XCB_PROPERTY_NOTIFY:
      if (reinterpret_cast<const xcb_property_notify_event_t&>(event).window == server_->root())
        lookForNewWindows();
      break;
    case XCB_CONFIGURE_NOTIFY:
      note(reinterpret_cast<const xcb_configure_notify_event_t&>(event).window);
      break;
    case XCB_UNMAP_NOTIFY:
      announcements_.erase(reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window);
      break;
    default:
      break;
  }
}

void PanelRoom::lookForNewWindows() {
  const auto before = std::exchange(known_, server_->numbers(server_->root(), "_NET_CLIENT_LIST"));
  const auto announcement = server_->atom("_NET_WM_WINDOW_TYPE_NOTIFICATION");
  for (const xcb_window_t window : std::vector(known_)) {
    if (std::ranges::find(before, window) != before.end()) continue;
    const auto types = server_->numbers(window, "_NET_WM_WINDOW_TYPE");
    if (std::ranges::find(types, announcement) == types.end()) continue;
    const std::uint32_t changes = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(server_->get(), window, XCB_CW_EVENT_MASK, &changes);
    note(window);
  }
}

void PanelRoom::note(xcb_window_t announcement) {
  const auto size = Xcb::answer(xcb_get_geometry_reply, server_->get(),
                                xcb_get_geometry(server_->get(), announcement));
  const auto at =
      Xcb::answer(xcb_translate_coordinates_reply, server_->get(),
                  xcb_translate_coordinates(server_->get(), announcement, server_->root(), 0, 0));
  if (!size || !at) return;
  const Rect place = logicalRect(QRectF(at->dst_x, at->dst_y, size->width, size->height));
  announcements_[announcement] =
      QRectF(place.origin.x, place.origin.y, place.size.width, place.size.height).toAlignedRect();
  QMetaObject::invokeMethod(
      this, [told = onAnnouncement_] { told(); }, Qt::QueuedConnection);
}

}  // namespace Hilalor::Desktop
