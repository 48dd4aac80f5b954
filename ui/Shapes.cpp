#include "ui/Shapes.hpp"

#include <QPainter>
#include <QPen>
#include <algorithm>
#include <array>
#include <cmath>

namespace Hilalor::Ui {
namespace {

// A corner of radius 1 in its own axes, from where it leaves one edge to where it joins the other:
// three curves that share tangent and bend where they meet.
constexpr double kReach = 1.5287;
constexpr std::array<QPointF, 9> kCorner{{{1.0885, 0},
                                          {0.8684, 0},
                                          {0.6315, 0.0749},
                                          {0.3728, 0.1691},
                                          {0.1691, 0.3728},
                                          {0.0749, 0.6315},
                                          {0, 0.8684},
                                          {0, 1.0885},
                                          {0, 1.5287}}};

void addCorner(QPainterPath& path, QPointF corner, QPointF from, QPointF to) {
  const auto at = [&](QPointF point) { return corner + point.x() * from + point.y() * to; };
  for (std::size_t curve = 0; curve < kCorner.size(); curve += 3)
    path.cubicTo(at(kCorner[curve]), at(kCorner[curve + 1]), at(kCorner[curve + 2]));
}

}  // namespace

QPainterPath smoothRect(const QRectF& rect, double radius) {
  const double room = std::min(rect.width(), rect.height()) / 2;
  const double side = std::min(radius, room / kReach);
  const QPointF right(side, 0);
  const QPointF down(0, side);
  QPainterPath path(rect.topRight() - kReach * right);
  addCorner(path, rect.topRight(), -right, down);
  path.lineTo(rect.bottomRight() - kReach * down);
  addCorner(path, rect.bottomRight(), -down, -right);
  path.lineTo(rect.bottomLeft() + kReach * right);
  addCorner(path, rect.bottomLeft(), right, -down);
  path.lineTo(rect.topLeft() + kReach * down);
  addCorner(path, rect.topLeft(), down, right);
  path.closeSubpath();
  return path;
}

QRectF onPixels(const QPainter& painter, const QRectF& rect, double lineWidth) {
  const QTransform toDevice = painter.deviceTransform();
  const bool isOdd = std::lround(lineWidth * toDevice.m11()) % 2 == 1;
  const double middle = isOdd ? 0.5 : 0;
  QRectF seen = toDevice.mapRect(rect);
  seen.setLeft(std::ceil(seen.left() - middle) + middle);
  seen.setTop(std::ceil(seen.top() - middle) + middle);
  seen.setRight(std::floor(seen.right() - middle) + middle);
  seen.setBottom(std::floor(seen.bottom() - middle) + middle);
  return toDevice.inverted().mapRect(seen);
}

void strokeSmoothRect(QPainter& painter, const QRectF& rect, double radius, const QPen& pen) {
  painter.setPen(pen);
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(smoothRect(onPixels(painter, rect, pen.widthF()), radius));
}

void strokeWithin(QPainter& painter, const QRectF& rect, double radius, const QPen& pen) {
  const double inset = pen.widthF() / 2;
  strokeSmoothRect(painter, rect.adjusted(inset, inset, -inset, -inset), radius - inset, pen);
}

}  // namespace Hilalor::Ui
