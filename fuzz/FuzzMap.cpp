// A tile of the map with any content behind a sound frame.

#include <cstdint>
#include <span>
#include <vector>

#include "desktop/geodata/MapDatabase.hpp"
#include "fuzz/FramedInput.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace Hilalor;
  using namespace Hilalor::Desktop;
  static_cast<void>(MapDatabase::over({data, size}));

  FramedInput input({data, size});
  // Two levels of 90 degrees and one of 180; the last tile's end is the fuzzer's.
  const FuzzBytes levels{90, 0, 90, 0, 180, 0};
  std::vector<std::uint32_t> offsets(4 * 2 + 1);
  offsets.back() = input.number();
  const auto strayed = input.number();
  const auto tiles = input.rest();
  std::vector<std::uint32_t> strays(4 * 2 + 1, strayed);
  strays.back() = static_cast<std::uint32_t>(tiles.size());
  const auto last = numbers({0, 0, static_cast<std::uint32_t>(tiles.size())});
  const auto file = framed("HILM", 1, {levels, numbers(offsets), numbers(strays), last, tiles});
  const auto map = MapDatabase::over(file);
  if (!map) __builtin_trap();
  for (const MapTile tile : {MapTile{0, 3, 1}, {1, 0, 0}, {1, 3, 1}, {2, 1, 0}}) {
    map->visitShapes(tile, [](MapLayer, std::span<const MapPoint> points) {
      for (const MapPoint point : points)
        if (point.x < 0 || point.x > kMapTileUnits || point.y < 0 || point.y > kMapTileUnits)
          __builtin_trap();
    });
  }
  return 0;
}
