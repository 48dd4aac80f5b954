#pragma once

#include <QRectF>
#include <QString>
#include <vector>

#include "rules/map/MapViewport.hpp"
#include "screens/map/LabelSheet.hpp"
#include "screens/map/MapPainter.hpp"
#include "screens/map/MapTiles.hpp"

class QPainter;

namespace Hilalor::Screens {

/// A name with its place on the screen.
struct PlacedLabel {
  const MapLabel* label = nullptr;
  QPointF dot;  ///< The place itself.
  QRectF rect;  ///< Of the name.
};

/// Writes the names of places on a map: the more important ones first, and of those that would
/// touch the more important alone. What remains stays as the map is moved.
class MapLabels {
 public:
  MapLabels();

  /// The names to write. None touches what is taken already.
  [[nodiscard]] std::vector<PlacedLabel> place(const MapViewport& viewport, MapTiles& tiles,
                                               const std::vector<VisibleTile>& visible,
                                               std::vector<QRectF> taken) const;

  /// Those of the names that can be seen.
  void paint(QPainter& painter, const MapViewport& viewport, const std::vector<PlacedLabel>& labels,
             const MapColors& colors);

 private:
  LabelSheet sheet_;
};

}  // namespace Hilalor::Screens
