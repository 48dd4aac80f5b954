#pragma once

#include <QPainterPath>

class QColor;
class QPainter;
class QRectF;

namespace Hilalor::Ui {

/// The pictures on buttons and beside texts, drawn by ourselves so that they look alike on every
/// desktop.
enum class Icon {
  power,
  gear,
  stopCircle,
  playCircle,
  locationArrow,
  mapPin,
  warningTriangle,
  circlingArrows,
  checkMark,
  magnifyingGlass,
  plus,
  minus,
};

/// The outline to be filled, in a square of that side (logical pixels), its lines as wide at every
/// side.
[[nodiscard]] const QPainterPath& iconPath(Icon icon, int side);

/// The side of an icon that stands beside type of that size, a little taller than the type (logical
/// pixels).
[[nodiscard]] int iconSide(int typeSize);

/// Fills the icon in the largest square of whole pixels at the middle of the rectangle.
void paintIcon(QPainter& painter, Icon icon, const QRectF& rect, const QColor& color);

}  // namespace Hilalor::Ui
