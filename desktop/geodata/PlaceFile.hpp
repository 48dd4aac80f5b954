#pragma once

#include <cstddef>

#include "desktop/geodata/DataFile.hpp"

/// The sections of places.bin, in their order.
namespace Hilalor::Desktop::PlaceFile {

enum SectionNumber : std::size_t {
  kCountries,
  kAreas,
  kZones,
  kTexts,
  kCells,
  kRecords,
  kNameSteps,
  kNames,
  kOtherNames,
  kSearch,
  kFolding,
  kLandRows,
  kLandColumns,
  kSectionCount,
};

inline constexpr DataFile::Kind kKind{"HILP", 1, kSectionCount};

}  // namespace Hilalor::Desktop::PlaceFile
