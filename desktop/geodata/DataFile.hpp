#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "desktop/geodata/MappedFile.hpp"
#include "desktop/geodata/Section.hpp"

namespace Hilalor::Desktop {

/// The frame that the shipped data files share: four letters of magic, the version and the number
/// of sections (16 bits each), the size of the whole file, and each section's offset and length (32
/// bits each); little-endian.
class DataFile {
 public:
  struct Kind {
    std::string_view magic;
    std::uint16_t version;
    std::uint16_t sectionCount;
  };

  /// Maps the file. None unless it is of that kind and all its sections lie within it.
  [[nodiscard]] static std::optional<DataFile> open(const std::filesystem::path& path, Kind kind);

  /// The same from bytes that outlive the result.
  [[nodiscard]] static std::optional<DataFile> over(std::span<const std::uint8_t> bytes, Kind kind);

  /// The section of that number, below the kind's count.
  [[nodiscard]] const Section& section(std::size_t number) const { return sections_[number]; }

 private:
  DataFile() = default;

  std::optional<MappedFile> file_;
  std::vector<Section> sections_;
};

}  // namespace Hilalor::Desktop
