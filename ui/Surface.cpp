#include "ui/Surface.hpp"

#include <qdrawutil.h>
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <map>

#include "ui/Colors.hpp"
#include "ui/Shapes.hpp"

namespace Hilalor::Ui {
namespace {

constexpr double kShadowOpacity = 0.3;
// Of the room for a shadow, what it takes at the sides; the rest is how far it falls.
constexpr double kReachShare = 0.8;

/// A small picture of the shadow around a rounded rectangle, whose middle can be stretched.
QPixmap shadowPicture(int reach, int radius) {
  const int fixed = reach + radius;
  const int side = 2 * fixed + 1;
  QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      const double away = std::hypot(std::abs(x - fixed), std::abs(y - fixed)) - radius;
      const double light = std::clamp(away / reach, 0.0, 1.0);
      const double opacity = kShadowOpacity * (1 - light) * (1 - light);
      picture.setPixel(x, y, qRgba(0, 0, 0, qRound(255 * opacity)));
    }
  }
  return QPixmap::fromImage(picture);
}

void paintShadow(QPainter& painter, const Surface& surface) {
  const int reach = qRound(surface.shadow * kReachShare);
  const int radius = qRound(surface.radius);
  static std::map<std::pair<int, int>, QPixmap> pictures;
  QPixmap& picture = pictures[{reach, radius}];
  if (picture.isNull()) picture = shadowPicture(reach, radius);
  // It begins where the body does: what lies above, which may be a bar, gets none of it.
  const QRect fallen = surface.body.toRect().adjusted(-reach, 0, reach, surface.shadow);
  const int fixed = reach + radius;
  qDrawBorderPixmap(&painter, fallen, QMargins(fixed, fixed, fixed, fixed), picture);
}

void paintCut(QPainter& painter, const Colors& colors, const QRegion& whole) {
  const QRegion inner = whole & whole.translated(1, 0) & whole.translated(-1, 0) &
                        whole.translated(0, 1) & whole.translated(0, -1);
  painter.fillRect(whole.boundingRect(), colors.windowBackground);
  painter.setClipRegion(whole - inner);
  painter.fillRect(whole.boundingRect(), colors.tertiary);
  painter.setClipping(false);
}

}  // namespace

Surface Surface::of(const QRectF& body, double radius, int shadow) {
  return {.body = body, .radius = radius, .outline = smoothRect(body, radius), .shadow = shadow};
}

QRegion cutShape(const QPainterPath& outline) {
  return QRegion(outline.toFillPolygon().toPolygon());
}

void paintSurface(QPainter& painter, const QWidget& window, const Surface& surface) {
  const Colors& colors = Colors::of(window);
  if (!window.testAttribute(Qt::WA_TranslucentBackground))
    return paintCut(painter, colors, cutShape(surface.outline));
  painter.setRenderHint(QPainter::Antialiasing);
  if (surface.shadow > 0) paintShadow(painter, surface);
  painter.fillPath(surface.outline, colors.windowBackground);
  // The half of the line that is inside.
  painter.setClipPath(surface.outline);
  painter.strokePath(surface.outline, QPen(colors.separator, 2));
  painter.setClipping(false);
}

}  // namespace Hilalor::Ui
