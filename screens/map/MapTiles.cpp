#include "screens/map/MapTiles.hpp"

#include <algorithm>
#include <utility>

namespace Hilalor::Screens {

namespace {

// As many as several screens have.
constexpr std::size_t kManyTiles = 160;
// More names than a tile has room for on the screen, and for the last level all there may be, since
// it is drawn up to any size.
constexpr std::size_t kLabelsPerTile = 60;
constexpr std::size_t kLabelsOfFinestTile = 2000;

std::size_t labelLimit(const WorldMap& map, MapTile tile) {
  const bool isFinest = tile.level + 1 == map.tileDegrees().size();
  return isFinest ? kLabelsOfFinestTile : kLabelsPerTile;
}

QStringView takeLine(QStringView& rest) {
  const qsizetype length = rest.indexOf(u'\n');
  const QStringView line = rest.first(length);
  rest = rest.sliced(length + 1);
  return line;
}

/// Turns points of a tile into what they are on a Mercator map.
class TileProjection {
 public:
  TileProjection(MapTile tile, int degrees)
      : south_(tile.row * degrees - 90),
        perUnit_(static_cast<double>(degrees) / kMapTileUnits),
        top_(projected({static_cast<double>(south_ + degrees), 0}).y),
        height_(projected({static_cast<double>(south_), 0}).y - top_) {}

  [[nodiscard]] TilePoint operator()(MapPoint point) const {
    const double y = projected({south_ + point.y * perUnit_, 0}).y;
    return {static_cast<float>(point.x) / kMapTileUnits, static_cast<float>((y - top_) / height_)};
  }

 private:
  int south_;
  double perUnit_;  // In degrees.
  double top_;
  double height_;
};

}  // namespace

TileContent::TileContent(const WorldMap& map, MapTile tile) {
  readShapes(map, tile);
  readLabels(map, tile);
}

void TileContent::readShapes(const WorldMap& map, MapTile tile) {
  const TileProjection project(tile, map.tileDegrees()[tile.level]);
  map.visitShapes(tile, [&](MapLayer layer, std::span<const MapPoint> points) {
    shapes_[static_cast<std::size_t>(layer)].push_back(
        {static_cast<std::uint32_t>(points_.size()), static_cast<std::uint32_t>(points.size())});
    std::ranges::transform(points, std::back_inserter(points_), project);
  });
  points_.shrink_to_fit();
}

void TileContent::readLabels(const WorldMap& map, MapTile tile) {
  const auto places = map.places(tile, labelLimit(map, tile));
  for (const MapPlace& place : places)
    names_ += QString::fromStdString(place.name) + u'\n';
  QStringView rest(names_);
  labels.reserve(places.size());
  for (const MapPlace& place : places)
    labels.push_back({takeLine(rest), projected(place.coordinate), place.rank});
}

MapTiles::MapTiles(std::unique_ptr<WorldMap> map) : map_(std::move(map)) {
  readAreas();
}

void MapTiles::readAreas() {
  const auto areas = map_->areas();
  for (const NamedArea& area : areas) {
    const QString name = QString::fromStdString(area.name);
    areaNames_ += (area.kind == NamedArea::Kind::country ? name.toUpper() : name) + u'\n';
  }
  QStringView rest(areaNames_);
  areas_.reserve(areas.size());
  for (const NamedArea& area : areas) {
    const bool isCountry = area.kind == NamedArea::Kind::country;
    areas_.push_back({.name = takeLine(rest),
                      .place = projected(area.coordinate),
                      .kind = isCountry ? LabelKind::country : LabelKind::sea,
                      .degrees = area.degrees});
  }
}

TileContent& MapTiles::content(MapTile tile) {
  const auto found = contents_.find(tile);
  if (found != contents_.end()) return found->second;
  return contents_.try_emplace(tile, *map_, tile).first->second;
}

void MapTiles::keep(const std::vector<VisibleTile>& visible) {
  if (contents_.size() <= kManyTiles) return;
  std::erase_if(contents_, [&](const auto& entry) {
    return std::ranges::find(visible, entry.first, &VisibleTile::tile) == visible.end();
  });
}

}  // namespace Hilalor::Screens
