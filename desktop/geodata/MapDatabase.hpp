#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

#include "desktop/geodata/DataFile.hpp"
#include "platform/Atlas.hpp"

namespace Hilalor::Desktop {

/// The shores and borders of the world, from map.bin (its format is described beside it). The file
/// is mapped, not read. Any thread.
class MapDatabase {
 public:
  /// None when the file is not there or damaged.
  [[nodiscard]] static std::optional<MapDatabase> open(const std::filesystem::path& path);

  /// The same from bytes that outlive the result.
  [[nodiscard]] static std::optional<MapDatabase> over(std::span<const std::uint8_t> bytes);

  /// The side of each level's tiles, the coarsest level first.
  [[nodiscard]] const std::vector<int>& tileDegrees() const { return tileDegrees_; }

  /// Visits a tile's shapes. A tile that does not exist has none; of a damaged one those before the
  /// damage are seen, all their points within the tile.
  void visitShapes(MapTile tile, const WorldMap::ShapeVisitor& visit) const;

 private:
  [[nodiscard]] static std::optional<MapDatabase> of(std::optional<DataFile> file);
  explicit MapDatabase(DataFile file);

  [[nodiscard]] bool isSound() const;
  [[nodiscard]] std::span<const std::uint8_t> bytesOf(MapTile tile) const;

  DataFile file_;
  std::vector<int> tileDegrees_;
};

}  // namespace Hilalor::Desktop
