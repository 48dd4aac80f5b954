#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/LocationService.hpp"

namespace Hilalor {

/// What a shape on the map is. Later ones lie over earlier ones.
enum class MapLayer { land, lake, islandInLake, countryBorder, areaBorder };

/// One of the square pieces that a level of detail is cut into, counted from the south-west corner
/// of the world (-180, -90).
struct MapTile {
  std::size_t level = 0;  ///< 0 is the coarsest.
  int column = 0;         ///< To the east.
  int row = 0;            ///< To the north.
  friend auto operator<=>(const MapTile&, const MapTile&) = default;
};

/// A point of a shape, in `kMapTileUnits`ths of its tile's side from the tile's south-west corner.
struct MapPoint {
  std::int16_t x = 0;
  std::int16_t y = 0;
  friend bool operator==(const MapPoint&, const MapPoint&) = default;
};

inline constexpr int kMapTileUnits = 8192;

/// A place to write on the map.
struct MapPlace {
  std::string name;
  LocationCoordinate coordinate;
  double rank = 0;  ///< 0 for the world's greatest cities, about 16 for hamlets.
};

/// A country or a sea to write on the map.
struct NamedArea {
  enum class Kind { country, sea };
  Kind kind = Kind::country;
  std::string name;
  LocationCoordinate coordinate;  ///< Of the name's middle.
  double degrees = 0;             ///< Of longitude that the area has around it.
};

/// A place that was looked for.
struct FoundPlace {
  std::string name;
  std::string area;  ///< First-level area; empty where unknown.
  std::string country;
  LocationCoordinate coordinate;
  friend bool operator==(const FoundPlace&, const FoundPlace&) = default;
};

/// Shores, borders and places of the world. Main thread.
class WorldMap {
 public:
  virtual ~WorldMap() = default;

  /// For each level of detail its tiles' side in degrees, the coarsest first. A side divides 360
  /// and 180. Empty where there is no map.
  [[nodiscard]] virtual const std::vector<int>& tileDegrees() const = 0;

  /// Told a shape of a tile. Those that close an area are rings, whose last point joins the first;
  /// borders are lines. The points live as long as the call.
  using ShapeVisitor = std::function<void(MapLayer layer, std::span<const MapPoint> points)>;

  /// Visits a tile's shapes, layer by layer. Rings are cut at the tile's edges.
  virtual void visitShapes(MapTile tile, const ShapeVisitor& visit) const = 0;

  /// The most important places of a tile, the first of them first.
  [[nodiscard]] virtual std::vector<MapPlace> places(MapTile tile, std::size_t limit) const = 0;

  /// All countries and seas, the widest first.
  [[nodiscard]] virtual std::vector<NamedArea> areas() const = 0;

  /// Places with a name in which a word begins like the text. Letter case and diacritics do not
  /// count, also in Arabic. The best known come first.
  [[nodiscard]] virtual std::vector<FoundPlace> search(std::string_view text,
                                                       std::size_t limit) const = 0;

  /// Names the makers of the data, as their licences ask. Shown on the map.
  [[nodiscard]] virtual std::string attribution() const = 0;
};

/// Gives the map of the world. Main thread.
class Atlas {
 public:
  virtual ~Atlas() = default;

  /// The map's memory is free again once the map has gone.
  [[nodiscard]] virtual std::unique_ptr<WorldMap> open() = 0;
};

}  // namespace Hilalor
