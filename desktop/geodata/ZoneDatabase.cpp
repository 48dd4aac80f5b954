#include "desktop/geodata/ZoneDatabase.hpp"

#include <algorithm>
#include <array>
#include <cmath>

#include "desktop/geodata/Bisection.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr DataFile::Kind kKind{"HILZ", 1, 5};
enum SectionNumber : std::size_t { kNames, kRows, kColumns, kValues, kTiles };

// The grid misses the poles and the date line by a hair.
constexpr double kEast = 179.9999;
constexpr double kNorth = 89.9999;
constexpr std::uint32_t kGridTiles = 512;
constexpr double kTileUnits = 4096;
constexpr std::size_t kMaximumPalette = 16;

// What a run of tiles holds is in the two highest bits of its value.
constexpr std::uint32_t kKindMask = 3U << 30;
constexpr std::uint32_t kOneZone = 1U << 30;
constexpr std::uint32_t kTile = 2U << 30;

double gridCoordinate(double degrees, double limit) {
  const double part = (std::clamp(degrees, -limit, limit) + limit) / (2 * limit);
  return part * kGridTiles;
}

std::uint32_t tileOf(double gridCoordinate) {
  return std::min(static_cast<std::uint32_t>(gridCoordinate), kGridTiles - 1);
}

// The zone west of a point and nearest to it: along a line from the west edge, every arc that is
// crossed changes the zone to the one on the arc's east side.
class ZoneToTheWest {
 public:
  ZoneToTheWest(double x, double y) : x_(x), y_(y) {}

  void readEdge(ByteReader& tile) {
    bool found = false;
    for (std::uint32_t count = tile.varint(); count > 0 && !tile.failed(); --count) {
      const std::uint32_t top = tile.varint();
      const std::uint32_t zone = tile.u8();
      if (found || y_ >= top) continue;
      found = true;
      zone_ = zone;
    }
  }

  void readArc(ByteReader& tile) {
    const std::uint32_t sides = tile.u8();
    std::int64_t x = 0;
    std::int64_t y = 0;
    const std::uint32_t count = tile.varint();
    for (std::uint32_t i = 0; i < count && !tile.failed(); ++i) {
      const std::int64_t beforeX = x;
      const std::int64_t beforeY = y;
      x += tile.signedVarint();
      y += tile.signedVarint();
      if (i == 0) continue;
      const auto [fromX, fromY] =
          std::pair(static_cast<double>(beforeX), static_cast<double>(beforeY));
      const auto [toX, toY] = std::pair(static_cast<double>(x), static_cast<double>(y));
      if ((fromY > y_) == (toY > y_)) continue;
      const double crossing = fromX + (y_ - fromY) * (toX - fromX) / (toY - fromY);
      if (crossing > x_ || crossing < nearest_) continue;
      nearest_ = crossing;
      // Going north, the right side is the east one.
      zone_ = toY > fromY ? sides & 0xF : sides >> 4;
    }
  }

  /// Its place in the tile's palette.
  [[nodiscard]] std::uint32_t zone() const { return zone_; }

 private:
  double x_;
  double y_;
  double nearest_ = 0;
  std::uint32_t zone_ = 0;
};

}  // namespace

std::optional<ZoneDatabase> ZoneDatabase::open(const std::filesystem::path& path) {
  return of(DataFile::open(path, kKind));
}

std::optional<ZoneDatabase> ZoneDatabase::over(std::span<const std::uint8_t> bytes) {
  return of(DataFile::over(bytes, kKind));
}

std::optional<ZoneDatabase> ZoneDatabase::of(std::optional<DataFile> file) {
  if (!file) return std::nullopt;
  ZoneDatabase database(std::move(*file));
  if (!database.isSound()) return std::nullopt;
  return database;
}

ZoneDatabase::ZoneDatabase(DataFile file) : file_(std::move(file)) {
  const auto& names = file_.section(kNames);
  for (std::size_t offset = 0; offset < names.size();) {
    names_.push_back(names.text(offset));
    offset += names_.back().size() + 1;
  }
}

bool ZoneDatabase::isSound() const {
  const std::size_t runs = file_.section(kColumns).size() / 2;
  return file_.section(kRows).size() == 4 * (kGridTiles + 1) &&
         file_.section(kColumns).size() == 2 * runs && file_.section(kValues).size() == 4 * runs &&
         file_.section(kRows).u32(4 * kGridTiles) == runs;
}

std::optional<std::string_view> ZoneDatabase::zoneAt(LocationCoordinate coordinate) const {
  if (!isOnGlobe(coordinate)) return std::nullopt;
  const double x = gridCoordinate(coordinate.longitude, kEast);
  const double y = gridCoordinate(coordinate.latitude, kNorth);
  const GridPoint point{tileOf(x), tileOf(y), (x - tileOf(x)) * kTileUnits,
                        (y - tileOf(y)) * kTileUnits};
  const std::uint32_t run = runAt(point);
  const std::uint32_t rest = run & ~kKindMask;
  switch (run & kKindMask) {
    case kOneZone:
      return name(rest);
    case kTile:
      return zoneInTile(rest, point);
    default:
      return std::nullopt;
  }
}

std::uint32_t ZoneDatabase::runAt(const GridPoint& point) const {
  const auto& rows = file_.section(kRows);
  const auto& columns = file_.section(kColumns);
  const std::uint32_t first = rows.u32(std::size_t{4} * point.row);
  const std::uint32_t last = rows.u32(std::size_t{4} * point.row + 4);
  // It is in the run before the first that begins after it.
  const auto after = firstNotBefore(first + 1, last, [&](std::uint32_t run) {
    return columns.u16(std::size_t{2} * run) <= point.column;
  });
  return file_.section(kValues).u32(std::size_t{4} * (after - 1));
}

std::optional<std::string_view> ZoneDatabase::zoneInTile(std::size_t offset,
                                                         const GridPoint& point) const {
  const auto tiles = file_.section(kTiles).bytes();
  if (offset >= tiles.size()) return std::nullopt;
  ByteReader tile(tiles.subspan(offset));
  std::array<std::uint32_t, kMaximumPalette> palette{};
  const std::uint32_t zones = tile.u8();
  if (zones > palette.size()) return std::nullopt;
  for (std::uint32_t i = 0; i < zones; ++i)
    palette[i] = tile.u16();
  ZoneToTheWest west(point.x, point.y);
  west.readEdge(tile);
  for (std::uint32_t arcs = tile.varint(); arcs > 0 && !tile.failed(); --arcs)
    west.readArc(tile);
  if (tile.failed() || west.zone() >= zones) return std::nullopt;
  return name(palette[west.zone()]);
}

std::optional<std::string_view> ZoneDatabase::name(std::uint32_t zone) const {
  // Beyond all names lies the number that stands for no zone.
  if (zone >= names_.size()) return std::nullopt;
  return names_[zone];
}

}  // namespace Hilalor::Desktop
