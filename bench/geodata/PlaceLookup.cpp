// place_lookup FOLDER: how long the time zone and the description of a point take, for points of
// towns and points anywhere, and what opening the data adds to the process's resident memory.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "desktop/geodata/PlaceDatabase.hpp"
#include "desktop/geodata/ZoneDatabase.hpp"
#include "tools/Usage.hpp"

namespace {

using namespace Hilalor;
using namespace Hilalor::Desktop;

template <typename LookUp>
void measure(const char* what, const std::vector<LocationCoordinate>& points, LookUp lookUp) {
  std::vector<double> microseconds;
  microseconds.reserve(points.size());
  std::size_t found = 0;
  for (const auto point : points) {
    const double start = processorMicroseconds();
    found += lookUp(point) ? 1U : 0U;
    microseconds.push_back(processorMicroseconds() - start);
  }
  std::sort(microseconds.begin(), microseconds.end());
  const auto at = [&](std::size_t perThousand) {
    return microseconds[(microseconds.size() - 1) * perThousand / 1000];
  };
  std::printf("%-28s %7zu points, %6zu found: median %6.2f us, 99 %% %6.2f, 99.9 %% %6.2f\n", what,
              points.size(), found, at(500), at(990), at(999));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const std::filesystem::path folder(argv[1]);
  const long before = kilobytes("VmRSS");
  const auto zones = ZoneDatabase::open(folder / "zones" / "zones.bin");
  const auto places = PlaceDatabase::open(folder / "places" / "places.bin");
  if (!zones || !places) return 2;
  std::printf("resident memory added by opening: %ld kB\n", kilobytes("VmRSS") - before);

  constexpr std::size_t kPoints = 100000;
  std::mt19937_64 random(11);
  std::vector<LocationCoordinate> towns;
  std::vector<LocationCoordinate> anywhere;
  std::uniform_real_distribution<double> part(0, 1);
  std::normal_distribution<double> aside(0, 0.05);
  while (towns.size() < kPoints) {
    const auto place = places->place(static_cast<std::uint32_t>(random() % places->placeCount()));
    if (!place || std::abs(place->coordinate.latitude) > 89) continue;
    const auto [latitude, longitude] = place->coordinate;
    towns.push_back({latitude + aside(random), std::remainder(longitude + aside(random), 360.0)});
    anywhere.push_back(
        {std::asin(2 * part(random) - 1) * 180 / std::numbers::pi, 360 * part(random) - 180});
  }
  const auto zoneAt = [&](LocationCoordinate point) { return zones->zoneAt(point); };
  const auto describe = [&](LocationCoordinate point) {
    const auto zone = zones->zoneAt(point);
    return zone ? places->describe(point, *zone) : std::nullopt;
  };
  measure("zone, near towns", towns, zoneAt);
  measure("zone, anywhere", anywhere, zoneAt);
  measure("zone and place, near towns", towns, describe);
  measure("zone and place, anywhere", anywhere, describe);
  std::printf("resident memory after all: %ld kB more\n", kilobytes("VmRSS") - before);
  return 0;
}
