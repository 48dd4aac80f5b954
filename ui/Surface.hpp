#pragma once

#include <QPainterPath>
#include <QRegion>

class QPainter;
class QWidget;

namespace Hilalor::Ui {

/// What floats over other windows: a ground with an edge, and a shadow below it where windows are
/// mixed. Elsewhere the window is cut to its outline, and the edge follows the cut.
struct Surface {
  QRectF body;           ///< What the shadow is that of, within the window.
  double radius = 0;     ///< Of the body's corners.
  QPainterPath outline;  ///< The body with all that stands out of it.
  int shadow = 0;        ///< The room that the window leaves for it around the body, 0 for none.

  /// A body without anything that stands out.
  [[nodiscard]] static Surface of(const QRectF& body, double radius, int shadow);
};

/// The pixels of a window that is cut to that outline.
[[nodiscard]] QRegion cutShape(const QPainterPath& outline);

/// Paints it in the colours of the window.
void paintSurface(QPainter& painter, const QWidget& window, const Surface& surface);

}  // namespace Hilalor::Ui
