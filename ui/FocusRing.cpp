#include "ui/FocusRing.hpp"

#include <QPainter>

#include "ui/Colors.hpp"

namespace Hilalor {
namespace {

constexpr double kRingWidth = 1.5;

}  // namespace

void paintFocusRing(QPainter& painter, const QRectF& rect, double radius, const Colors& colors) {
  const double inset = kRingWidth / 2;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(colors.separator);
  painter.setPen(QPen(colors.secondary, kRingWidth));
  painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius, radius);
  painter.restore();
}

}  // namespace Hilalor
