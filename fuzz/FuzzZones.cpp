// The zones of the world from a file with any content behind a sound frame.

#include <cstdint>

#include "desktop/geodata/ZoneDatabase.hpp"
#include "fuzz/FramedInput.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace Hilalor;
  using namespace Hilalor::Desktop;
  static_cast<void>(ZoneDatabase::over({data, size}));

  FramedInput input({data, size});
  const LocationCoordinate coordinate{input.degrees(90), input.degrees(180)};
  // The rows' starts: as many as the reader wants, and all of the runs before the end of the last.
  constexpr std::size_t kRows = 513;
  auto names = input.section(4096);
  auto rows = input.section(4 * kRows);
  rows.resize(4 * kRows);
  auto columns = input.section(2048);
  columns.resize(columns.size() / 2 * 2);
  setNumber(rows, 4 * (kRows - 1), columns.size() / 2);
  auto values = input.section(4096);
  values.resize(2 * columns.size());
  const auto file = framed("HILZ", 1, {names, rows, columns, values, input.rest()});
  const auto zones = ZoneDatabase::over(file);
  if (!zones) __builtin_trap();
  static_cast<void>(zones->zoneAt(coordinate));
  for (int row = 0; row < 18; ++row)
    static_cast<void>(zones->zoneAt({10.0 * row - 85, coordinate.longitude}));
  return 0;
}
