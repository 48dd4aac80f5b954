#pragma once

#include <QPainterPath>
#include <QRectF>

class QPainter;
class QPen;

namespace Hilalor::Ui {

/// A rectangle whose corners begin to bend before the radius does, so that nowhere along the edge
/// the bend sets in at once. The radius is smaller where the rectangle has no room for it.
[[nodiscard]] QPainterPath smoothRect(const QRectF& rect, double radius);

/// The nearest rectangle within which a line of that width along its edges fills whole pixels of
/// the screen: at a scale of 1 a line of one pixel runs between two of its borders.
[[nodiscard]] QRectF onPixels(const QPainter& painter, const QRectF& rect, double lineWidth);

/// Draws the line along the edges of the rectangle with such corners, on whole pixels.
void strokeSmoothRect(QPainter& painter, const QRectF& rect, double radius, const QPen& pen);

/// The same just inside the edges, for what has no room around it.
void strokeWithin(QPainter& painter, const QRectF& rect, double radius, const QPen& pen);

}  // namespace Hilalor::Ui
