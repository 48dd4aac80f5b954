#pragma once

class QPainter;
class QRectF;

namespace Hilalor {

struct Colors;

/// Marks the control that the keyboard acts on, just inside its rectangle.
void paintFocusRing(QPainter& painter, const QRectF& rect, double radius, const Colors& colors);

}  // namespace Hilalor
