#pragma once

#include <optional>
#include <vector>

#include "rules/map/MapViewport.hpp"
#include "screens/map/LabelPlacement.hpp"
#include "screens/map/LabelSheet.hpp"
#include "screens/map/MapPainter.hpp"
#include "screens/map/MapTiles.hpp"

class QPainter;

namespace Hilalor::Screens {

/// Writes the names of places, countries and seas on a map: the more important ones first, and of
/// those that would touch the more important alone. What remains stays as the map is moved.
class MapLabels {
 public:
  /// The names to write. None touches what is taken already.
  [[nodiscard]] std::vector<PlacedLabel> place(const MapViewport& viewport, MapTiles& tiles,
                                               const std::vector<VisibleTile>& visible,
                                               std::vector<QRectF> taken,
                                               const std::optional<PinRooms>& pin = {}) const;

  /// Those of the names that can be seen as a whole.
  void paint(QPainter& painter, const MapViewport& viewport, const std::vector<PlacedLabel>& labels,
             const MapColors& colors);

 private:
  LabelSheet sheet_;
};

}  // namespace Hilalor::Screens
