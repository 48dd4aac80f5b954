#include "screens/map/MapView.hpp"

#include <QApplication>
#include <QChildEvent>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QLineF>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QPainterPath>
#include <QTouchEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "ui/Spoken.hpp"
#include "ui/TextStyle.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

using std::chrono::milliseconds;

constexpr double kDoublingsPerWheelNotch = 0.5;
constexpr double kDoublingsPerStep = 0.75;  // By a key or a button.
constexpr double kDoublingsPerDoubleClick = 1;
constexpr milliseconds kGlide{160};
constexpr int kArrowStep = 60;

constexpr double kPinRadius = 9;
constexpr double kPinHeight = 26;
constexpr double kPinHole = 3.5;
constexpr int kTitleTypeSize = 11;
constexpr double kTitleGap = 3;

constexpr int kAttributionTypeSize = 9;
constexpr QSizeF kAttributionPadding{5, 2};
constexpr double kAttributionOpacity = 0.75;

QFont titleFont() {
  return systemFont(kTitleTypeSize, QFont::DemiBold);
}

QPointF toQt(Point point) {
  return {point.x, point.y};
}

Point fromQt(QPointF point) {
  return {point.x(), point.y()};
}

/// A drop that ends in its tip at 0, 0.
QPainterPath pinOutline() {
  constexpr double kCentre = kPinRadius - kPinHeight;
  QPainterPath path({0, 0});
  path.cubicTo(-2, -8, -kPinRadius, kCentre + 8, -kPinRadius, kCentre);
  path.arcTo(QRectF(-kPinRadius, -kPinHeight, 2 * kPinRadius, 2 * kPinRadius), 180, -180);
  path.cubicTo(kPinRadius, kCentre + 8, 2, -8, 0, 0);
  path.closeSubpath();
  return path;
}

bool isTyping(const QKeyEvent& event) {
  const auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  return (event.modifiers() & commands) == 0 && !event.text().isEmpty() &&
         event.text().front().isLetterOrNumber();
}

}  // namespace

MapView::MapView(std::unique_ptr<WorldMap> map)
    : tiles_(std::move(map)),
      attribution_(QString::fromStdString(tiles_.map().attribution())),
      glide_(0, [this] { glideOn(); }) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_AcceptTouchEvents);
  setSpokenRole(*this, QAccessible::Graphic);
  setAccessibleName(QStringLiteral("Map"));
  setAccessibleDescription(QStringLiteral(
      "Arrows move it, plus and minus change its size, letters look for a place by its name."));
}

void MapView::setRegion(const MapRegion& region) {
  glideGoal_ = glided_;
  glide_.jump(glided_);
  region_ = region;
  viewport_.show(region);
  update();
}

void MapView::setAnnotation(std::optional<MapAnnotation> annotation) {
  annotation_ = std::move(annotation);
  update();
}

LocationCoordinate MapView::coordinateAt(QPointF place) const {
  return viewport_.coordinateAt(fromQt(place));
}

bool MapView::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
      touch(*static_cast<QTouchEvent*>(event));
      return true;
    case QEvent::TouchCancel:
      letGo();
      return true;
    case QEvent::NativeGesture: {
      const auto& gesture = *static_cast<QNativeGestureEvent*>(event);
      if (gesture.gestureType() != Qt::ZoomNativeGesture) break;
      zoomBy(std::log2(std::max(0.1, 1 + gesture.value())), gesture.position());
      return true;
    }
    default:
      break;
  }
  return QWidget::event(event);
}

// What lies over the map. Names give way to it, also those far from it, and a press, a touch or a
// turn of the wheel on it is not one on the map, though it may do nothing there.

void MapView::childEvent(QChildEvent* event) {
  QWidget::childEvent(event);
  if (!event->added() || !event->child()->isWidgetType()) return;
  static_cast<QWidget*>(event->child())->setAttribute(Qt::WA_NoMousePropagation);
  event->child()->installEventFilter(this);
}

bool MapView::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  if (type == QEvent::Resize || type == QEvent::Move) update();
  return QWidget::eventFilter(watched, event);
}

void MapView::resizeEvent(QResizeEvent*) {
  viewport_.setSize({static_cast<double>(width()), static_cast<double>(height())});
  if (region_) viewport_.show(*region_);
}

void MapView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) update();
}

// Looking around.

void MapView::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) press(event->position());
}

void MapView::mouseMoveEvent(QMouseEvent* event) {
  if (draggedTo_) drag(*draggedTo_, event->position());
}

void MapView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) release(event->position());
}

void MapView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) glideBy(kDoublingsPerDoubleClick, event->position());
}

void MapView::press(QPointF place) {
  pressedAt_ = place;
  draggedTo_ = place;
}

void MapView::drag(QPointF from, QPointF to) {
  if (pressedAt_) {
    if ((to - *pressedAt_).manhattanLength() < QApplication::startDragDistance()) return;
    pressedAt_.reset();
    setCursor(Qt::ClosedHandCursor);
  }
  draggedTo_ = to;
  pan(to - from);
}

void MapView::release(QPointF place) {
  unsetCursor();
  draggedTo_.reset();
  if (std::exchange(pressedAt_, std::nullopt) && onClick) onClick(place);
}

void MapView::letGo() {
  unsetCursor();
  pressedAt_.reset();
  draggedTo_.reset();
  pinch_.reset();
}

void MapView::touch(const QTouchEvent& event) {
  const auto& fingers = event.points();
  if (fingers.size() >= 2 && event.type() != QEvent::TouchEnd) {
    return pinch(fingers[0].position(), fingers[1].position());
  }
  pinch_.reset();
  const QPointF place = fingers[0].position();
  if (event.type() == QEvent::TouchBegin) {
    press(place);
  } else if (event.type() == QEvent::TouchEnd) {
    release(place);
  } else if (draggedTo_) {
    drag(*draggedTo_, place);
  }
}

void MapView::pinch(QPointF one, QPointF other) {
  pressedAt_.reset();
  draggedTo_.reset();
  const Pinch now{(one + other) / 2, std::max(1.0, QLineF(one, other).length())};
  if (pinch_) {
    pan(now.middle - pinch_->middle);
    zoomBy(std::log2(now.width / pinch_->width), now.middle);
  }
  pinch_ = now;
}

void MapView::wheelEvent(QWheelEvent* event) {
  constexpr double kNotch = 120;
  const double notches = event->angleDelta().y() / kNotch;
  event->accept();
  if (notches == 0) return;
  // A touchpad goes by small steps, which need no smoothing.
  if (std::abs(notches) < 1) return zoomBy(kDoublingsPerWheelNotch * notches, event->position());
  glideBy(kDoublingsPerWheelNotch * notches, event->position());
}

void MapView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return zoom(Zoom::in);
    case Qt::Key_Minus:
      return zoom(Zoom::out);
    case Qt::Key_Left:
      return pan({kArrowStep, 0});
    case Qt::Key_Right:
      return pan({-kArrowStep, 0});
    case Qt::Key_Up:
      return pan({0, kArrowStep});
    case Qt::Key_Down:
      return pan({0, -kArrowStep});
    default:
      if (isTyping(*event) && onType) return onType(event->text());
      QWidget::keyPressEvent(event);
  }
}

void MapView::pan(QPointF by) {
  region_.reset();
  viewport_.pan(by.x(), by.y());
  update();
}

void MapView::zoomBy(double doublings, QPointF fixed) {
  region_.reset();
  viewport_.zoom(std::exp2(doublings), fromQt(fixed));
  update();
}

void MapView::zoom(Zoom direction) {
  glideBy(direction == Zoom::in ? kDoublingsPerStep : -kDoublingsPerStep, QRectF(rect()).center());
}

void MapView::glideBy(double doublings, QPointF fixed) {
  glideAround_ = fixed;
  glideGoal_ += doublings;
  glide_.to(glideGoal_, kGlide);
}

void MapView::glideOn() {
  const double now = glide_.value();
  zoomBy(now - std::exchange(glided_, now), glideAround_);
}

// Painting.

void MapView::paintEvent(QPaintEvent*) {
  const MapColors& colors = MapColors::of(colorScheme(palette()));
  const auto visible = viewport_.visibleTiles(map().tileDegrees());
  QPainter painter(this);
  paintMap(painter, viewport_, tiles_, visible, colors);
  const auto labels = labels_.place(viewport_, tiles_, visible, takenRooms(), pinRooms());
  labels_.paint(painter, viewport_, labels, colors);
  if (annotation_) paintPin(painter, colors);
  paintAttribution(painter, colors);
  tiles_.keep(visible);
}

std::vector<QRectF> MapView::takenRooms() const {
  std::vector<QRectF> taken{attributionRect()};
  for (const QWidget* over : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
    taken.emplace_back(over->geometry());
  return taken;
}

std::optional<PinRooms> MapView::pinRooms() const {
  if (!annotation_) return std::nullopt;
  const QPointF tip = toQt(viewport_.pointOf(annotation_->coordinate));
  const QRectF drop(tip.x() - kPinRadius, tip.y() - kPinHeight, 2 * kPinRadius, kPinHeight);
  return PinRooms{tip, drop, titleRect(tip)};
}

QRectF MapView::titleRect(QPointF tip) const {
  const QFontMetricsF metrics(titleFont());
  const double width = metrics.horizontalAdvance(annotation_->title);
  QRectF title(tip.x() - width / 2, tip.y() + kTitleGap, width, metrics.height());
  // The edges do not cut it: it gives way along them, as long as the pin is there.
  if (!rect().contains(tip.toPoint())) return title;
  const double farthest = std::max(kTitleGap, this->width() - kTitleGap - width);
  title.moveLeft(std::clamp(title.left(), kTitleGap, farthest));
  if (title.bottom() > height()) title.moveBottom(tip.y() - kPinHeight);
  return title;
}

void MapView::paintPin(QPainter& painter, const MapColors& colors) const {
  painter.save();
  painter.translate(toQt(viewport_.pointOf(annotation_->coordinate)));
  painter.setPen(QPen(colors.placeHalo, 1));
  painter.setBrush(Colors::of(*this).red);
  painter.drawPath(pinOutline());
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::white);
  painter.drawEllipse(QPointF(0, kPinRadius - kPinHeight), kPinHole, kPinHole);
  painter.restore();
  painter.setFont(titleFont());
  const QPointF tip = toQt(viewport_.pointOf(annotation_->coordinate));
  paintHaloed(painter, titleRect(tip).topLeft(), annotation_->title, colors.place,
              colors.placeHalo);
}

QRectF MapView::attributionRect() const {
  if (attribution_.isEmpty()) return {};
  const QFontMetricsF metrics(systemFont(kAttributionTypeSize));
  const QSizeF size =
      QSizeF(metrics.horizontalAdvance(attribution_), metrics.height()) + 2 * kAttributionPadding;
  return {QPointF(width() - size.width(), height() - size.height()), size};
}

void MapView::paintAttribution(QPainter& painter, const MapColors& colors) const {
  const QRectF rect = attributionRect();
  painter.fillRect(rect, faded(colors.land, kAttributionOpacity));
  painter.setFont(systemFont(kAttributionTypeSize));
  painter.setPen(colors.place);
  painter.drawText(rect, Qt::AlignCenter, attribution_);
}

}  // namespace Hilalor::Screens
