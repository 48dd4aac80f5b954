// Places, areas, names and searches from a file with any content behind a sound frame.

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "desktop/geodata/PlaceDatabase.hpp"
#include "desktop/geodata/PlaceFile.hpp"
#include "fuzz/FramedInput.hpp"

namespace {

using namespace Hilalor;
using namespace Hilalor::Desktop;
using namespace Hilalor::Desktop;

// The sizes that the reader demands; what is in them is the fuzzer's.
constexpr std::size_t kCells = 360 * 180 + 1;
constexpr std::size_t kLandRows = 3600 + 1;
constexpr std::size_t kRecordSize = 8;

FuzzBytes wholeEntries(FuzzBytes bytes, std::size_t entrySize) {
  bytes.resize(bytes.size() / entrySize * entrySize);
  return bytes;
}

// All places stand in the cell that is looked at, but for what the fuzzer says of the cells before.
FuzzBytes cellSection(FramedInput& input, LocationCoordinate coordinate, std::uint32_t places) {
  const auto cell = static_cast<std::ptrdiff_t>(coordinate.latitude + 90) * 360 +
                    static_cast<std::ptrdiff_t>(coordinate.longitude + 180);
  std::vector<std::uint32_t> cells(kCells);
  std::fill(cells.begin() + cell + 1, cells.end(), places);
  for (std::ptrdiff_t before = 0; before < 4; ++before)
    cells[static_cast<std::size_t>(std::max<std::ptrdiff_t>(0, cell - before))] = input.number();
  cells.back() = places;
  return numbers(cells);
}

// Land everywhere in every other row, and what the fuzzer says in those between.
FuzzBytes landRowSection(FramedInput& input, std::uint32_t columns) {
  std::vector<std::uint32_t> rows(kLandRows);
  for (std::size_t i = 1; i < kLandRows; i += 2)
    rows[i] = columns;
  const std::uint32_t strayed = input.number();
  for (std::size_t i = 0; i < kLandRows; i += 6)
    rows[i] = strayed;
  rows.back() = columns;
  return numbers(rows);
}

FuzzBytes fileOf(FramedInput& input, LocationCoordinate coordinate) {
  std::vector<FuzzBytes> sections(PlaceFile::kSectionCount);
  sections[PlaceFile::kCountries] = wholeEntries(input.section(64), 8);
  sections[PlaceFile::kAreas] = wholeEntries(input.section(128), 8);
  sections[PlaceFile::kZones] = wholeEntries(input.section(64), 8);
  sections[PlaceFile::kTexts] = input.section(256);
  sections[PlaceFile::kRecords] = wholeEntries(input.section(512), kRecordSize);
  const std::size_t places = sections[PlaceFile::kRecords].size() / kRecordSize;
  sections[PlaceFile::kCells] = cellSection(input, coordinate, static_cast<std::uint32_t>(places));
  sections[PlaceFile::kOtherNames] = wholeEntries(input.section(48), 3);
  const std::size_t names = places + sections[PlaceFile::kOtherNames].size() / 3;
  sections[PlaceFile::kNameSteps] = input.section(256);
  sections[PlaceFile::kNameSteps].resize(4 * ((names + 15) / 16));
  sections[PlaceFile::kSearch] = wholeEntries(input.section(256), 3);
  sections[PlaceFile::kFolding] = input.section(512);
  auto columns = wholeEntries(input.section(64), 2);
  columns.resize(columns.size() + 2);
  sections[PlaceFile::kLandRows] =
      landRowSection(input, static_cast<std::uint32_t>(columns.size() / 2));
  sections[PlaceFile::kLandColumns] = std::move(columns);
  sections[PlaceFile::kNames] = input.rest();
  return framed("HILP", 1, sections);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static_cast<void>(PlaceDatabase::over({data, size}));

  FramedInput input({data, size});
  const LocationCoordinate coordinate{input.degrees(89), input.degrees(179)};
  const auto text = input.section(16);
  const auto zone = input.section(16);
  const auto file = fileOf(input, coordinate);
  const auto places = PlaceDatabase::over(file);
  if (!places) __builtin_trap();
  static_cast<void>(places->describe(coordinate, std::string(zone.begin(), zone.end())));
  static_cast<void>(places->describe(coordinate, ""));
  static_cast<void>(places->search(std::string(text.begin(), text.end()), 8));
  for (std::uint32_t number = 0; number <= places->placeCount(); ++number)
    static_cast<void>(places->place(number));
  return 0;
}
