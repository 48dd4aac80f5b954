#include "ui/Icon.hpp"

#include <QPainter>
#include <QPainterPathStroker>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <map>

namespace Hilalor::Ui {
namespace {

// Icons are drawn on a square of 16 by 16 and filled by the odd-even rule: a shape within a shape
// is a hole.
constexpr double kSide = 16;
constexpr QPointF kMiddle{8, 8};
// In pixels, whatever the icon's size: side by side all look as heavy.
constexpr double kStroke = 1.6;

QPainterPath circle(QPointF middle, double radius) {
  QPainterPath path;
  path.addEllipse(middle, radius, radius);
  return path;
}

/// Part of a circle around the middle, in degrees counterclockwise from three o'clock.
QPainterPath arc(double radius, double from, double span) {
  const QRectF box(kMiddle.x() - radius, kMiddle.y() - radius, 2 * radius, 2 * radius);
  QPainterPath path;
  path.arcMoveTo(box, from);
  path.arcTo(box, from, span);
  return path;
}

QPainterPath line(std::initializer_list<QPointF> points) {
  QPainterPath path;
  path.addPolygon(QPolygonF(QList<QPointF>(points)));
  return path;
}

QPainterPath polygon(std::initializer_list<QPointF> corners) {
  QPainterPath path = line(corners);
  path.closeSubpath();
  return path;
}

QTransform turn(double degrees) {
  return QTransform().translate(8, 8).rotate(degrees).translate(-8, -8);
}

/// Draws with lines of one weight in an icon of that side.
class Drawing {
 public:
  explicit Drawing(int side) : lineWidth_(kStroke * kSide / side) {}

  [[nodiscard]] QPainterPath stroked(const QPainterPath& path) const {
    return outlined(path, lineWidth_);
  }

  /// The shape with its corners rounded off.
  [[nodiscard]] static QPainterPath softened(const QPainterPath& shape) {
    constexpr double kSoftness = 1.2;
    return shape.united(outlined(shape, kSoftness));
  }

  [[nodiscard]] QPainterPath power() const {
    return stroked(arc(5.8, 124, 292)).united(stroked(line({{8, 1.8}, {8, 7.4}})));
  }

  [[nodiscard]] static QPainterPath gear() {
    constexpr int kTeeth = 8;
    const QPainterPath tooth = polygon({{5.9, 3.2}, {6.8, 0.6}, {9.2, 0.6}, {10.1, 3.2}});
    QPainterPath wheel = circle(kMiddle, 5.5);
    for (int index = 0; index < kTeeth; ++index)
      wheel = wheel.united(turn(360.0 / kTeeth * index).map(tooth));
    return wheel.subtracted(circle(kMiddle, 2.5));
  }

  [[nodiscard]] static QPainterPath stopCircle() {
    QPainterPath square;
    square.addRoundedRect(QRectF(5.5, 5.5, 5, 5), 1, 1);
    return circle(kMiddle, 7.2).subtracted(square);
  }

  [[nodiscard]] QPainterPath playCircle() const {
    const QPainterPath ring = stroked(circle(kMiddle, 7.2 - lineWidth_ / 2));
    return ring.united(softened(polygon({{6.7, 5.5}, {6.7, 10.5}, {10.8, 8}})));
  }

  [[nodiscard]] static QPainterPath locationArrow() {
    return softened(polygon({{13.6, 2.4}, {2.6, 7.3}, {7.6, 8.4}, {8.7, 13.4}}));
  }

  [[nodiscard]] static QPainterPath mapPin() {
    QPainterPath drop({8, 15.4});
    drop.cubicTo(6.6, 12.4, 2.8, 10.2, 2.8, 6.2);
    drop.arcTo(QRectF(2.8, 1, 10.4, 10.4), 180, -180);
    drop.cubicTo(13.2, 10.2, 9.4, 12.4, 8, 15.4);
    return drop.subtracted(circle({8, 6.2}, 2.2));
  }

  [[nodiscard]] QPainterPath warningTriangle() const {
    return softened(polygon({{8, 2.2}, {14.4, 13.4}, {1.6, 13.4}}))
        .subtracted(stroked(line({{8, 6}, {8, 9}})))
        .subtracted(circle({8, 11.8}, lineWidth_ * 0.6));
  }

  [[nodiscard]] QPainterPath circlingArrows() const {
    const QPainterPath head = polygon({{10.6, 6.8}, {15.2, 6.8}, {13.6, 3.2}});
    const QPainterPath half = stroked(arc(5.8, 22, 126)).united(softened(head));
    return half.united(turn(180).map(half));
  }

  [[nodiscard]] QPainterPath checkMark() const {
    return stroked(line({{3.5, 8.5}, {6.6, 11.6}, {12.5, 4.7}}));
  }

  [[nodiscard]] QPainterPath plus() const { return minus().united(turn(90).map(minus())); }

  [[nodiscard]] QPainterPath minus() const { return stroked(line({{3, 8}, {13, 8}})); }

  [[nodiscard]] QPainterPath magnifyingGlass() const {
    const QPainterPath handle = stroked(line({{10.4, 10.4}, {14, 14}}));
    return stroked(circle({6.6, 6.6}, 4.6)).united(handle);
  }

 private:
  [[nodiscard]] static QPainterPath outlined(const QPainterPath& path, double width) {
    QPainterPathStroker pen;
    pen.setWidth(width);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    return pen.createStroke(path).simplified();
  }

  double lineWidth_;
};

QPainterPath drawn(Icon icon, const Drawing& drawing) {
  switch (icon) {
    case Icon::power:
      return drawing.power();
    case Icon::gear:
      return Drawing::gear();
    case Icon::stopCircle:
      return Drawing::stopCircle();
    case Icon::playCircle:
      return drawing.playCircle();
    case Icon::locationArrow:
      return Drawing::locationArrow();
    case Icon::mapPin:
      return Drawing::mapPin();
    case Icon::warningTriangle:
      return drawing.warningTriangle();
    case Icon::circlingArrows:
      return drawing.circlingArrows();
    case Icon::checkMark:
      return drawing.checkMark();
    case Icon::magnifyingGlass:
      return drawing.magnifyingGlass();
    case Icon::plus:
      return drawing.plus();
    case Icon::minus:
      return drawing.minus();
  }
  return {};
}

}  // namespace

const QPainterPath& iconPath(Icon icon, int side) {
  // Joining shapes takes longer than filling them.
  static std::map<std::pair<Icon, int>, QPainterPath> paths;
  const auto [place, isNew] = paths.try_emplace({icon, side});
  if (isNew) {
    const double scale = side / kSide;
    place->second = QTransform::fromScale(scale, scale).map(drawn(icon, Drawing(side)));
  }
  return place->second;
}

int iconSide(int typeSize) {
  constexpr double kPerType = 1.2;
  return qRound(kPerType * typeSize);
}

void paintIcon(QPainter& painter, Icon icon, const QRectF& rect, const QColor& color) {
  // An even side has its middle between two pixels, as the icons are drawn.
  const int half = static_cast<int>(std::min(rect.width(), rect.height())) / 2;
  const int side = half * 2;
  const QPointF corner = rect.center() - QPointF(half, half);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(std::floor(corner.x()), std::floor(corner.y()));
  painter.fillPath(iconPath(icon, side), color);
  painter.restore();
}

}  // namespace Hilalor::Ui
