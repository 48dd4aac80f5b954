#include "screens/map/MapLabels.hpp"

#include <QPainter>
#include <utility>

namespace Hilalor::Screens {

namespace {

constexpr double kDotRadius = 2;

}  // namespace

std::vector<PlacedLabel> MapLabels::place(const MapViewport& viewport, MapTiles& tiles,
                                          const std::vector<VisibleTile>& visible,
                                          std::vector<QRectF> taken,
                                          const std::optional<PinRooms>& pin) const {
  return LabelPlacement(viewport, sheet_, std::move(taken)).placed(tiles, visible, pin);
}

void MapLabels::paint(QPainter& painter, const MapViewport& viewport,
                      const std::vector<PlacedLabel>& labels, const MapColors& colors) {
  const QRectF seen(0, 0, viewport.size().width, viewport.size().height);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const auto& [label, dot, rect] : labels) {
    if (!seen.contains(rect)) continue;
    sheet_.paint(painter, rect.topLeft(), label->kind, label->name.toString(), colors);
    if (label->kind != LabelKind::place) continue;
    painter.setPen(QPen(colors.placeHalo, 1));
    painter.setBrush(colors.place);
    painter.drawEllipse(dot, kDotRadius, kDotRadius);
  }
}

}  // namespace Hilalor::Screens
