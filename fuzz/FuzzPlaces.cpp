// Places, areas, names and searches from a file with any content behind a sound frame.

#include <cstdint>
#include <string>

#include "desktop/geodata/PlaceDatabase.hpp"
#include "desktop/geodata/PlaceFile.hpp"
#include "fuzz/FramedInput.hpp"

namespace {

using namespace Hilalor;

// The sizes that the reader demands; what is in them is the fuzzer's.
constexpr std::size_t kCells = 360 * 180 + 1;
constexpr std::size_t kLandRows = 3600 + 1;
constexpr std::size_t kRecordSize = 8;

FuzzBytes wholeEntries(FuzzBytes bytes, std::size_t entrySize) {
  bytes.resize(bytes.size() / entrySize * entrySize);
  return bytes;
}

FuzzBytes fileOf(FramedInput& input, LocationCoordinate coordinate) {
  std::vector<FuzzBytes> sections(PlaceFile::kSectionCount);
  sections[PlaceFile::kCountries] = wholeEntries(input.section(64), 8);
  sections[PlaceFile::kAreas] = wholeEntries(input.section(128), 8);
  sections[PlaceFile::kZones] = wholeEntries(input.section(64), 8);
  sections[PlaceFile::kTexts] = input.section(256);
  sections[PlaceFile::kRecords] = wholeEntries(input.section(512), kRecordSize);
  const std::size_t places = sections[PlaceFile::kRecords].size() / kRecordSize;
  // All places stand in the cell that is looked at, or where the fuzzer has them.
  auto& cells = sections[PlaceFile::kCells];
  cells.resize(4 * kCells);
  const auto cell = static_cast<std::size_t>(coordinate.latitude + 90) * 360 +
                    static_cast<std::size_t>(coordinate.longitude + 180);
  for (std::size_t i = cell + 1; i < kCells; ++i)
    setNumber(cells, 4 * i, places);
  const auto strayed = input.section(64);
  std::copy(strayed.begin(), strayed.end(),
            cells.begin() + static_cast<std::ptrdiff_t>(4 * (cell / 2)));
  setNumber(cells, 4 * (kCells - 1), places);
  sections[PlaceFile::kOtherNames] = wholeEntries(input.section(48), 3);
  sections[PlaceFile::kNameSteps] = input.section(256);
  const std::size_t names = places + sections[PlaceFile::kOtherNames].size() / 3;
  sections[PlaceFile::kNameSteps].resize(4 * ((names + 15) / 16));
  sections[PlaceFile::kSearch] = wholeEntries(input.section(256), 3);
  sections[PlaceFile::kFolding] = input.section(512);
  // Land everywhere, but for what the fuzzer says.
  sections[PlaceFile::kLandColumns] = wholeEntries(input.section(64), 2);
  sections[PlaceFile::kLandColumns].resize(sections[PlaceFile::kLandColumns].size() + 2);
  sections[PlaceFile::kLandRows] = input.section(256);
  sections[PlaceFile::kLandRows].resize(4 * kLandRows);
  const std::size_t columns = sections[PlaceFile::kLandColumns].size() / 2;
  for (std::size_t i = 1; i < kLandRows; i += 2)
    setNumber(sections[PlaceFile::kLandRows], 4 * i, columns);
  setNumber(sections[PlaceFile::kLandRows], 4 * (kLandRows - 1), columns);
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
