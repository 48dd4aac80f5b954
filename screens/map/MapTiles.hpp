#pragma once

#include <QString>
#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <vector>

#include "platform/Atlas.hpp"
#include "rules/map/MapViewport.hpp"

namespace Hilalor::Screens {

/// A point of a shape in a tile: 0, 0 is the tile's top left corner on the screen, 1, 1 the bottom
/// right.
struct TilePoint {
  float x = 0;
  float y = 0;
};

enum class LabelKind { place, country, sea };

/// A name to write on the map.
struct MapLabel {
  QStringView name;  ///< Lives as long as its tile, of countries and seas as the tiles.
  WorldPoint place;
  double rank = 0;  ///< As a map place has it; 0 for countries and seas.
  LabelKind kind = LabelKind::place;
  double degrees = 0;  ///< Of longitude around the name of a country or a sea.
  int width = -1;      ///< In logical pixels; below 0 until it was measured.
};

/// A tile as it is drawn: its shapes projected, and its names, the most important first.
class TileContent {
 public:
  TileContent(const WorldMap& map, MapTile tile);
  TileContent(const TileContent&) = delete;
  TileContent& operator=(const TileContent&) = delete;

  template <typename Visit>
  void forEach(MapLayer layer, Visit visit) const {
    for (const Shape& shape : shapes_[static_cast<std::size_t>(layer)])
      visit(std::span(points_).subspan(shape.first, shape.count));
  }

  std::vector<MapLabel> labels;

 private:
  struct Shape {
    std::uint32_t first;
    std::uint32_t count;
  };
  static constexpr std::size_t kLayers = 5;

  void readShapes(const WorldMap& map, MapTile tile);
  void readLabels(const WorldMap& map, MapTile tile);

  std::array<std::vector<Shape>, kLayers> shapes_;
  std::vector<TilePoint> points_;
  QString
      names_;  // One after the other: blocks so large go back to the system when they are freed.
};

/// The tiles of a map that were looked at last.
class MapTiles {
 public:
  explicit MapTiles(std::unique_ptr<WorldMap> map);

  [[nodiscard]] const WorldMap& map() const { return *map_; }

  /// Countries and seas, the widest first.
  [[nodiscard]] std::vector<MapLabel>& areas() { return areas_; }

  /// Lives until the tiles are let go.
  [[nodiscard]] TileContent& content(MapTile tile);

  /// Lets go of all but these where there have come to be many.
  void keep(const std::vector<VisibleTile>& visible);

 private:
  void readAreas();

  std::unique_ptr<WorldMap> map_;
  QString areaNames_;  // One after the other.
  std::vector<MapLabel> areas_;
  std::map<MapTile, TileContent> contents_;
};

}  // namespace Hilalor::Screens
