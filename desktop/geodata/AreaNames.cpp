#include "desktop/geodata/AreaNames.hpp"

#include <optional>
#include <string>

#include "desktop/geodata/DataFile.hpp"

namespace Hilalor::Desktop {
namespace {

// The sections of names.bin, in their order.
enum SectionNumber : std::size_t { kAreas, kTexts, kSectionCount };

constexpr DataFile::Kind kKind{"HILN", 1, kSectionCount};
constexpr std::size_t kAreaSize = 12;
constexpr double kUnitsPerDegree = 100;

std::vector<NamedArea> areasOf(const std::optional<DataFile>& file) {
  std::vector<NamedArea> named;
  if (!file) return named;
  const Section& areas = file->section(kAreas);
  for (std::size_t at = 0; at + kAreaSize <= areas.size(); at += kAreaSize) {
    const LocationCoordinate middle{areas.u16(at + 2) / kUnitsPerDegree - 90,
                                    areas.u16(at) / kUnitsPerDegree - 180};
    const std::string_view name = file->section(kTexts).text(areas.u32(at + 8));
    if (!isOnGlobe(middle) || name.empty()) continue;
    named.push_back({areas.u16(at + 6) == 0 ? NamedArea::Kind::country : NamedArea::Kind::sea,
                     std::string(name), middle, areas.u16(at + 4) / kUnitsPerDegree});
  }
  return named;
}

}  // namespace

std::vector<NamedArea> readAreaNames(const std::filesystem::path& path) {
  return areasOf(DataFile::open(path, kKind));
}

std::vector<NamedArea> areaNamesIn(std::span<const std::uint8_t> bytes) {
  return areasOf(DataFile::over(bytes, kKind));
}

}  // namespace Hilalor::Desktop
