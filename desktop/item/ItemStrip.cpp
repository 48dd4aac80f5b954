#include "desktop/item/ItemStrip.hpp"

#include <QApplication>
#include <QBitmap>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/display/LinuxScreens.hpp"
#include "desktop/display/XConnection.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr int kHeight = 24;
constexpr int kCornerRadius = 6;
const QColor kGround(38, 43, 40);

/// Where the strip stands, of the width it leaves free: 0 at the left, 1 at the right.
constexpr const char* kShareKey = "itemStripShare";
constexpr double kFirstShare = 1;

/// A title bar has its buttons at one of its ends, each about as wide as the bar is high, with some
/// room for what programs that draw their own put beside them.
constexpr double kButtonsOfTitleHeight = 5;
constexpr double kOwnTitleHeight = 46;

Rect freeArea() {
  const auto screens = LinuxScreens().all();
  return screens.empty() ? Rect() : screens.front().visibleFrame;
}

/// Square at the edges of the screen, round at the corners that stand free.
QBitmap shape(const QSize& size, bool isAtLeft, bool isAtRight) {
  QBitmap mask(size);
  mask.clear();
  QPainter painter(&mask);
  painter.setBrush(Qt::color1);
  constexpr int kBeyond = 2 * kCornerRadius;
  const QRect whole(QPoint(0, 0), size - QSize(0, 1));
  painter.drawRoundedRect(
      whole.adjusted(isAtLeft ? -kBeyond : 0, -kBeyond, isAtRight ? kBeyond : -1, 0), kCornerRadius,
      kCornerRadius);
  return mask;
}

}  // namespace

ItemStrip::ItemStrip(const ItemContent& content, const ItemPainter& painter,
                     DefaultsStore& defaults)
    : defaults_(defaults), face_(content, painter, ItemFace::Ground::opaque) {
  face_.setPalette(QPalette(kGround));
  face_.setInk(Ink::on(kGround));
  face_.titleChanged();
  face_.installEventFilter(this);
  connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, [this] {
    watchScreen();
    put();
  });
  watchScreen();
  if (windows_) windowsChanged_ = windows_->changed.subscribe([this] { lookAround(); });
  put();
}

void ItemStrip::titleChanged() {
  face_.titleChanged();
  lookAround();
}

void ItemStrip::lookAround() {
  put();
  // No window manager knows this window, so nothing keeps others below it.
  face_.raise();
  // Qt would keep the request until the display has something to tell.
  if (isOnX11()) xcb_flush(qtConnection());
}

std::optional<Rect> ItemStrip::place() const {
  return face_.isVisible() ? face_.place() : std::nullopt;
}

bool ItemStrip::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  if (type == QEvent::MouseButtonPress || type == QEvent::MouseMove ||
      type == QEvent::MouseButtonRelease) {
    const auto& mouse = static_cast<const QMouseEvent&>(*event);
    const bool isLeft = mouse.button() == Qt::LeftButton;
    if (type == QEvent::MouseButtonPress && isLeft) drag_ = Drag{mouse.position().x()};
    if (type == QEvent::MouseMove && drag_) follow(mouse.globalPosition().x());
    if (type == QEvent::MouseButtonRelease && isLeft) {
      const auto ended = std::exchange(drag_, std::nullopt);
      if (const auto dragged = std::exchange(draggedShare_, std::nullopt))
        defaults_.setValue(kShareKey, *dragged);
      // Otherwise it was a click, for the face to tell of.
      if (ended && ended->hasMoved) return true;
    }
  }
  return QObject::eventFilter(watched, event);
}

void ItemStrip::follow(double pointer) {
  const Rect free = freeArea();
  const double left = pointer - drag_->within - free.origin.x;
  const double path = free.size.width - face_.width();
  if (!drag_->hasMoved &&
      std::abs(pointer - drag_->within - face_.x()) < QApplication::startDragDistance()) {
    return;
  }
  drag_->hasMoved = true;
  draggedShare_ = path > 0 ? std::clamp(left / path, 0.0, 1.0) : kFirstShare;
  put();
}

void ItemStrip::watchScreen() {
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    connect(screen, &QScreen::availableGeometryChanged, this, [this] { put(); });
  }
}

double ItemStrip::share() const {
  if (draggedShare_) return *draggedShare_;
  const double stored = defaults_.value(kShareKey) ? defaults_.number(kShareKey) : kFirstShare;
  return stored >= 0 && stored <= 1 ? stored : kFirstShare;
}

/// Moved to the inner side of what may be buttons at the ends of a title bar.
double ItemStrip::besideButtons(double x, double y, double width) const {
  if (!windows_ || windows_->front().extent != FrontWindow::Extent::fullHeight) return x;
  const auto& [extent, frame, titleHeight] = windows_->front();
  const double title = titleHeight > 0 ? titleHeight : kOwnTitleHeight;
  if (y >= frame.origin.y + title || y + kHeight <= frame.origin.y) return x;
  const double buttons = title * kButtonsOfTitleHeight;
  const double left = frame.origin.x;
  const double right = left + frame.size.width;
  if (x < right && x + width > right - buttons) return right - buttons - width;
  if (x < left + buttons && x + width > left) return left + buttons;
  return x;
}

void ItemStrip::put() {
  const Rect free = freeArea();
  const int width = face_.naturalWidth(kHeight);
  const double path = std::max(0.0, free.size.width - width);
  const double wanted = besideButtons(free.origin.x + share() * path, free.origin.y, width);
  const double x = std::round(std::clamp(wanted, free.origin.x, free.origin.x + path));
  const QRect place(QPointF(x, free.origin.y).toPoint(), QSize(width, kHeight));
  if (place != face_.geometry()) {
    face_.setGeometry(place);
    face_.setMask(shape(place.size(), x <= free.origin.x, x >= free.origin.x + std::floor(path)));
  }
  face_.setVisible(!windows_ || windows_->front().extent != FrontWindow::Extent::fullScreen);
}

}  // namespace Hilalor::Desktop
