#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <optional>
#include <vector>

#include "rules/map/MapViewport.hpp"
#include "screens/map/LabelSheet.hpp"
#include "screens/map/MapTiles.hpp"

namespace Hilalor::Screens {

/// A name with its place on the screen.
struct PlacedLabel {
  const MapLabel* label = nullptr;
  QPointF dot;  ///< The place itself; of a country or a sea its middle.
  QRectF rect;  ///< Of the name.
};

/// What a pin covers of the screen.
struct PinRooms {
  QPointF tip;
  QRectF drop;
  QRectF title;
};

/// Finds room for one name after the other: none touches another, nor what is taken already, and
/// none is cut by the map's edges.
class LabelPlacement {
 public:
  LabelPlacement(const MapViewport& viewport, const LabelSheet& sheet, std::vector<QRectF> taken);

  /// The place that the pin stands on keeps its name, beside the pin if need be; then countries and
  /// seas as far as they have room for theirs, then places, the more important ones first.
  [[nodiscard]] std::vector<PlacedLabel> placed(MapTiles& tiles,
                                                const std::vector<VisibleTile>& visible,
                                                const std::optional<PinRooms>& pin);

 private:
  /// A name that may be written.
  struct Candidate {
    MapLabel* label;
    QPointF dot;
  };
  /// Where it may stand, and what others have to leave free then.
  struct Room {
    QRectF name;
    QRectF occupied;
  };

  [[nodiscard]] std::vector<Candidate> places(MapTiles& tiles,
                                              const std::vector<VisibleTile>& visible) const;
  [[nodiscard]] QPointF pointOf(WorldPoint place) const;
  [[nodiscard]] QSizeF sizeOf(MapLabel& label) const;
  [[nodiscard]] bool fitsItsArea(MapLabel& area) const;

  void placePinned(const PinRooms& pin);
  void placeArea(MapLabel& area);
  bool place(const Candidate& candidate, const std::vector<Room>& rooms);
  [[nodiscard]] bool isFree(const Room& room, QPointF dot) const;
  [[nodiscard]] bool hidesOthers(const QRectF& room, const MapLabel& label) const;

  const MapViewport& viewport_;
  const LabelSheet& sheet_;
  QRectF seen_;
  std::vector<QRectF> taken_;
  std::vector<Candidate> places_;  // The most important first.
  std::vector<PlacedLabel> placed_;
};

}  // namespace Hilalor::Screens
