#include "desktop/geodata/MapDatabase.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "desktop/geodata/ByteReader.hpp"

namespace Hilalor::Desktop {
namespace {

// The sections of map.bin, in their order.
enum SectionNumber : std::size_t { kLevels, kFirstIndex, kTiles = 4, kSectionCount };

constexpr DataFile::Kind kKind{"HILM", 1, kSectionCount};
constexpr std::size_t kLevelCount = kTiles - kFirstIndex;
constexpr std::size_t kLevelSize = 2;
constexpr std::size_t kOffsetSize = 4;

constexpr std::array kLayers{MapLayer::land, MapLayer::lake, MapLayer::islandInLake,
                             MapLayer::countryBorder, MapLayer::areaBorder};

constexpr int kWidthDegrees = 360;
constexpr int kHeightDegrees = 180;

std::int16_t withinTile(std::int64_t units) {
  return static_cast<std::int16_t>(std::clamp<std::int64_t>(units, 0, kMapTileUnits));
}

void readShape(ByteReader& reader, std::vector<MapPoint>& points) {
  points.clear();
  std::int64_t x = 0;
  std::int64_t y = 0;
  for (std::uint32_t left = reader.varint(); left > 0; --left) {
    x += reader.signedVarint();
    y += reader.signedVarint();
    if (reader.failed()) return;
    points.push_back({withinTile(x), withinTile(y)});
  }
}

}  // namespace

std::optional<MapDatabase> MapDatabase::open(const std::filesystem::path& path) {
  return of(DataFile::open(path, kKind));
}

std::optional<MapDatabase> MapDatabase::over(std::span<const std::uint8_t> bytes) {
  return of(DataFile::over(bytes, kKind));
}

std::optional<MapDatabase> MapDatabase::of(std::optional<DataFile> file) {
  if (!file) return std::nullopt;
  MapDatabase database(std::move(*file));
  if (!database.isSound()) return std::nullopt;
  return database;
}

MapDatabase::MapDatabase(DataFile file) : file_(std::move(file)) {
  const Section& levels = file_.section(kLevels);
  for (std::size_t level = 0; level < kLevelCount; ++level)
    tileDegrees_.push_back(levels.u16(kLevelSize * level));
}

bool MapDatabase::isSound() const {
  if (file_.section(kLevels).size() != kLevelSize * kLevelCount) return false;
  for (std::size_t level = 0; level < kLevelCount; ++level) {
    const int degrees = tileDegrees_[level];
    if (degrees == 0 || kHeightDegrees % degrees != 0) return false;
    const int tiles = (kWidthDegrees / degrees) * (kHeightDegrees / degrees);
    const auto offsets = static_cast<std::size_t>(tiles) + 1;
    if (file_.section(kFirstIndex + level).size() != kOffsetSize * offsets) return false;
  }
  return true;
}

std::span<const std::uint8_t> MapDatabase::bytesOf(MapTile tile) const {
  if (tile.level >= kLevelCount) return {};
  const int degrees = tileDegrees_[tile.level];
  const int columns = kWidthDegrees / degrees;
  const int rows = kHeightDegrees / degrees;
  if (tile.column < 0 || tile.column >= columns || tile.row < 0 || tile.row >= rows) return {};
  const Section& index = file_.section(kFirstIndex + tile.level);
  const auto number = static_cast<std::size_t>(tile.row) * static_cast<std::size_t>(columns) +
                      static_cast<std::size_t>(tile.column);
  const std::size_t begin = index.u32(kOffsetSize * number);
  const std::size_t end = index.u32(kOffsetSize * (number + 1));
  const auto tiles = file_.section(kTiles).bytes();
  if (begin > end || end > tiles.size()) return {};
  return tiles.subspan(begin, end - begin);
}

void MapDatabase::visitShapes(MapTile tile, const WorldMap::ShapeVisitor& visit) const {
  const auto bytes = bytesOf(tile);
  if (bytes.empty()) return;
  ByteReader reader(bytes);
  std::vector<MapPoint> points;
  for (const MapLayer layer : kLayers) {
    for (std::uint32_t left = reader.varint(); left > 0; --left) {
      readShape(reader, points);
      if (reader.failed()) return;
      visit(layer, points);
    }
  }
}

}  // namespace Hilalor::Desktop
