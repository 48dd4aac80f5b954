#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "desktop/geodata/ByteReader.hpp"
#include "desktop/geodata/DataFile.hpp"
#include "platform/LocationService.hpp"

namespace Hilalor::Desktop {

/// The time zones of the world's lands and territorial waters, from zones.bin (its format is
/// described beside it). The file is mapped, not read. Any thread.
class ZoneDatabase {
 public:
  /// None when the file is not there or damaged.
  [[nodiscard]] static std::optional<ZoneDatabase> open(const std::filesystem::path& path);

  /// The same from bytes that outlive the result.
  [[nodiscard]] static std::optional<ZoneDatabase> over(std::span<const std::uint8_t> bytes);

  /// The identifier of the zone there ("Asia/Riyadh"), which lives as long as the database; none at
  /// sea, outside the globe, or where the data are damaged.
  [[nodiscard]] std::optional<std::string_view> zoneAt(LocationCoordinate coordinate) const;

 private:
  /// A point of the grid of tiles: which tile, and where in it.
  struct GridPoint {
    std::uint32_t column, row;
    double x, y;
  };

  [[nodiscard]] static std::optional<ZoneDatabase> of(std::optional<DataFile> file);
  explicit ZoneDatabase(DataFile file);

  [[nodiscard]] bool isSound() const;
  [[nodiscard]] std::uint32_t runAt(const GridPoint& point) const;
  [[nodiscard]] std::optional<std::string_view> zoneInTile(std::size_t offset,
                                                           const GridPoint& point) const;
  [[nodiscard]] std::optional<std::string_view> name(std::uint32_t zone) const;

  DataFile file_;
  std::vector<std::string_view> names_;
};

}  // namespace Hilalor::Desktop
