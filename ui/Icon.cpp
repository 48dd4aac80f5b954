#include "ui/Icon.hpp"

#include <QPainter>
#include <QPainterPathStroker>
#include <QTransform>
#include <algorithm>
#include <map>

namespace Hilalor::Ui {
namespace {

// Icons are drawn on a square of 16 by 16 and filled by the odd-even rule: a shape within a shape
// is a hole.
constexpr double kSide = 16;
constexpr QPointF kMiddle{8, 8};
constexpr double kStroke = 1.7;

QPainterPath stroked(const QPainterPath& line) {
  QPainterPathStroker pen;
  pen.setWidth(kStroke);
  pen.setCapStyle(Qt::RoundCap);
  pen.setJoinStyle(Qt::RoundJoin);
  return pen.createStroke(line).simplified();
}

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

QPainterPath polygon(std::initializer_list<QPointF> corners) {
  QPainterPath path;
  path.addPolygon(QPolygonF(QList<QPointF>(corners)));
  path.closeSubpath();
  return path;
}

/// The polygon with its corners rounded off.
QPainterPath softened(const QPainterPath& shape) {
  return shape.united(stroked(shape));
}

QPainterPath power() {
  QPainterPath bar({8, 1.6});
  bar.lineTo(8, 7.6);
  return stroked(arc(5.9, 125, 290)).united(stroked(bar));
}

QPainterPath gear() {
  constexpr int kTeeth = 8;
  QPainterPath teeth;
  QPainterPath tooth = softened(polygon({{7.2, 1.7}, {8.8, 1.7}, {9.4, 4}, {6.6, 4}}));
  for (int index = 0; index < kTeeth; ++index) {
    QTransform turn;
    turn.translate(8, 8).rotate(360.0 / kTeeth * index).translate(-8, -8);
    teeth = teeth.united(turn.map(tooth));
  }
  return teeth.united(circle(kMiddle, 5.3)).subtracted(circle(kMiddle, 2.3));
}

QPainterPath stopCircle() {
  QPainterPath square;
  square.addRoundedRect(QRectF(5.3, 5.3, 5.4, 5.4), 1, 1);
  return circle(kMiddle, 7).subtracted(square);
}

QPainterPath playCircle() {
  const QPainterPath triangle = softened(polygon({{6.9, 5.9}, {6.9, 10.1}, {10.3, 8}}));
  return circle(kMiddle, 7).subtracted(circle(kMiddle, 5.8)).united(triangle);
}

QPainterPath locationArrow() {
  return softened(polygon({{13.6, 2.4}, {2.6, 7.3}, {7.6, 8.4}, {8.7, 13.4}}));
}

QPainterPath mapPin() {
  QPainterPath stem({8, 7});
  stem.lineTo(8, 12.2);
  return circle(kMiddle, 7).subtracted(circle({8, 5.6}, 2.2).united(stroked(stem)));
}

QPainterPath warningTriangle() {
  QPainterPath mark({8, 6});
  mark.lineTo(8, 9);
  return softened(polygon({{8, 2.4}, {14.3, 13.2}, {1.7, 13.2}}))
      .subtracted(stroked(mark))
      .subtracted(circle({8, 11.7}, 1));
}

QPainterPath circlingArrows() {
  QPainterPath half = stroked(arc(5.6, 20, 130));
  half = half.united(softened(polygon({{12.2, 6.9}, {14.4, 4.2}, {15, 7.2}})));
  QTransform turn;
  turn.translate(8, 8).rotate(180).translate(-8, -8);
  return half.united(turn.map(half));
}

QPainterPath checkMark() {
  QPainterPath line({3.4, 8.6});
  line.lineTo(6.6, 11.8);
  line.lineTo(12.6, 4.6);
  return stroked(line);
}

QPainterPath magnifyingGlass() {
  QPainterPath handle({10.3, 10.3});
  handle.lineTo(14, 14);
  return circle({6.7, 6.7}, 5.2).subtracted(circle({6.7, 6.7}, 3.6)).united(stroked(handle));
}

QPainterPath drawn(Icon icon) {
  switch (icon) {
    case Icon::power:
      return power();
    case Icon::gear:
      return gear();
    case Icon::stopCircle:
      return stopCircle();
    case Icon::playCircle:
      return playCircle();
    case Icon::locationArrow:
      return locationArrow();
    case Icon::mapPin:
      return mapPin();
    case Icon::warningTriangle:
      return warningTriangle();
    case Icon::circlingArrows:
      return circlingArrows();
    case Icon::checkMark:
      return checkMark();
    case Icon::magnifyingGlass:
      return magnifyingGlass();
  }
  return {};
}

}  // namespace

const QPainterPath& iconPath(Icon icon) {
  // Joining shapes takes longer than filling them.
  static std::map<Icon, QPainterPath> paths;
  const auto [place, isNew] = paths.try_emplace(icon);
  if (isNew) place->second = QTransform::fromScale(1 / kSide, 1 / kSide).map(drawn(icon));
  return place->second;
}

int iconSide(int typeSize) {
  constexpr double kPerType = 1.2;
  return qRound(kPerType * typeSize);
}

void paintIcon(QPainter& painter, Icon icon, const QRectF& rect, const QColor& color) {
  const double side = std::min(rect.width(), rect.height());
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(rect.center() - QPointF(side / 2, side / 2));
  painter.scale(side, side);
  painter.fillPath(iconPath(icon), color);
  painter.restore();
}

}  // namespace Hilalor::Ui
