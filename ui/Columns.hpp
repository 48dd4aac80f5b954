#pragma once

#include <QString>

class QFont;
class QPainter;
class QRectF;

namespace Hilalor::Ui {

/// Times of the day that stand below each other in whatever font: each digit is as wide as the
/// widest one, and the last digit stands where it stands before "AM" and before "PM". Bold type has
/// wider digits and columns of its own; drawn to one width, regular ones would stand apart.

/// In logical pixels.
[[nodiscard]] double widthInColumns(const QFont& font, const QString& time);

/// In the painter's font and pen, to the rectangle's right edge and in the middle of its height.
void drawInColumns(QPainter& painter, const QRectF& rect, const QString& time);

}  // namespace Hilalor::Ui
