#include "ui/Popover.hpp"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "ui/Shapes.hpp"
#include "ui/Spoken.hpp"
#include "ui/Surface.hpp"

namespace Hilalor::Ui {
namespace {

constexpr double kRadius = 10;
constexpr int kArrowHeight = 9;
constexpr int kArrowHalfWidth = 10;
constexpr int kShadowWidth = 20;

bool isOnWayland() {
  return QGuiApplication::platformName() == QStringLiteral("wayland");
}

/// The same kind of window as the one it belongs to: what keeps that one above others and out of
/// the taskbar keeps this one too.
Qt::WindowFlags flagsBeside(const QWidget& window) {
  const Qt::WindowFlags inherited =
      window.windowFlags() & (Qt::X11BypassWindowManagerHint | Qt::WindowStaysOnTopHint);
  // Wayland places nothing but a popup beside another window.
  return inherited | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint |
         (isOnWayland() ? Qt::Popup : Qt::Tool);
}

/// Where it may stand. On Wayland a popup may not begin left of its owner, and one that does not
/// fit on the screen is moved beside it.
QRect roomFor(const QWidget& anchor) {
  QRect room = anchor.screen()->availableGeometry();
  if (!isOnWayland()) return room;
  room.setLeft(anchor.window()->mapToGlobal(QPoint(0, 0)).x());
  room.setWidth(anchor.window()->width());
  return room;
}

}  // namespace

Popover::Popover(QWidget& anchor, QWidget* content)
    : QWidget(anchor.window(), flagsBeside(*anchor.window())), anchor_(anchor), content_(content) {
  // Where the owner's corners can be see-through, so can ours; else the window is cut to shape.
  setAttribute(Qt::WA_TranslucentBackground,
               anchor.window()->testAttribute(Qt::WA_TranslucentBackground));
  // A compositor that manages the window would take the shadow for a part of it.
  const bool isOursToPlace = windowFlags().testFlag(Qt::X11BypassWindowManagerHint);
  if (isOursToPlace && testAttribute(Qt::WA_TranslucentBackground)) shadow_ = kShadowWidth;
  // Light or dark as its owner is.
  setAttribute(Qt::WA_WindowPropagation);
  content->setParent(this);
  setSpokenRole(*this, QAccessible::Dialog);
  setAccessibleName(content->windowTitle());
}

Popover::~Popover() {
  qApp->removeEventFilter(this);
}

void Popover::open() {
  place();
  qApp->installEventFilter(this);
  show();
  raise();
  activateWindow();
  content_->setFocus(Qt::PopupFocusReason);
}

void Popover::dismiss() {
  if (!isVisible()) return;
  // The keyboard goes back to the owner rather than to nobody.
  if (isActiveWindow()) parentWidget()->activateWindow();
  hide();
}

// A content that grows while it is shown gets the room for it.
void Popover::followContent() {
  if (isVisible() && content_->sizeHint() != content_->size()) place();
}

void Popover::place() {
  const QSize inner = content_->sizeHint().expandedTo(content_->minimumSize());
  const QSize seen(inner.width(), inner.height() + kArrowHeight);
  const QRect anchor(anchor_.mapToGlobal(QPoint(0, 0)), anchor_.size());
  const QRect room = roomFor(anchor_);
  const int middle = anchor.left() + anchor.width() / 2;

  side_ = anchor.bottom() + seen.height() <= room.bottom() ? Side::below : Side::above;
  const int y = side_ == Side::below ? anchor.bottom() + 1 : anchor.top() - seen.height();
  const int rightmost = std::max(room.left(), room.right() + 1 - seen.width());
  const int x = std::clamp(middle - seen.width() / 2, room.left(), rightmost);
  const QMargins shadow(shadow_, shadow_, shadow_, shadow_);
  const QRect whole = QRect(QPoint(x, y), seen).marginsAdded(shadow);
  resize(whole.size());
  move(whole.topLeft());
  arrowX_ = middle - whole.left();
  const int arrow = side_ == Side::below ? kArrowHeight : 0;
  content_->setGeometry(QRect(QPoint(shadow_, shadow_ + arrow), inner));
  if (!testAttribute(Qt::WA_TranslucentBackground)) setMask(cutShape(outline()));
}

QPainterPath Popover::outline() const {
  const QRectF box = content_->geometry();
  const bool isBelow = side_ == Side::below;
  const double base = isBelow ? box.top() : box.bottom();
  const double tip = isBelow ? base - kArrowHeight : base + kArrowHeight;
  const double inset = kRadius + kArrowHalfWidth;
  const double x = std::clamp<double>(arrowX_, box.left() + inset, box.right() - inset);
  // It begins within the body, so that no edge is left between the two.
  const double inside = isBelow ? base + 2 : base - 2;
  QPainterPath arrow;
  arrow.addPolygon(QPolygonF({{x - kArrowHalfWidth, inside},
                              {x - kArrowHalfWidth, base},
                              {x, tip},
                              {x + kArrowHalfWidth, base},
                              {x + kArrowHalfWidth, inside}}));
  arrow.closeSubpath();
  return smoothRect(box, kRadius).united(arrow);
}

void Popover::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintSurface(
      painter, *this,
      {.body = content_->geometry(), .radius = kRadius, .outline = outline(), .shadow = shadow_});
}

bool Popover::isOutside(const QEvent& press) const {
  return !outline().contains(static_cast<const QMouseEvent&>(press).position());
}

bool Popover::isOfThis(const QWidget* widget) const {
  // The menu of a text in it is a window of its own.
  while (widget != nullptr && widget != this)
    widget = widget->parentWidget();
  return widget == this;
}

bool Popover::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Hide && watched == parentWidget()) dismiss();
  if (event->type() == QEvent::LayoutRequest && watched == content_) followContent();
  const bool isOursToPlace = windowFlags().testFlag(Qt::X11BypassWindowManagerHint);
  if (event->type() == QEvent::Move && watched == parentWidget() && isOursToPlace) place();
  if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType()) {
    const bool isOnShadow = watched == this && isOutside(*event);
    if (isOnShadow || !isOfThis(static_cast<QWidget*>(watched))) dismiss();
  }
  return QWidget::eventFilter(watched, event);
}

void Popover::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return dismiss();
  QWidget::keyPressEvent(event);
}

void Popover::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  // Of a press elsewhere Wayland tells a popup alone, and that only as its end.
  if (isOnWayland() && QGuiApplication::mouseButtons() == Qt::NoButton)
    QMetaObject::invokeMethod(parentWidget(), &QWidget::close, Qt::QueuedConnection);
}

void Popover::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  qApp->removeEventFilter(this);
  if (const auto told = std::exchange(onDismiss, nullptr)) told();
}

}  // namespace Hilalor::Ui
