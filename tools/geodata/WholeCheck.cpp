// geodata_check FOLDER ZONES: looks up every place of the shipped data at its own position, says
// how many come out otherwise, and writes position and zone of each to the file ZONES.

#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>

#include "desktop/geodata/PlaceDatabase.hpp"
#include "desktop/geodata/ZoneDatabase.hpp"

int main(int argc, char** argv) {
  using namespace Hilalor::Desktop;
  if (argc != 3) return 2;
  const std::filesystem::path folder(argv[1]);
  const auto zones = ZoneDatabase::open(folder / "zones" / "zones.bin");
  const auto places = PlaceDatabase::open(folder / "places" / "places.bin");
  std::ofstream table(argv[2]);
  if (!zones || !places || !table) return 2;

  int towns = 0;
  int wrong = 0;
  table.precision(9);
  for (std::uint32_t number = 0; const auto place = places->place(number); ++number) {
    const auto zone = zones->zoneAt(place->coordinate);
    table << place->coordinate.longitude << '\t' << place->coordinate.latitude << '\t'
          << zone.value_or("") << '\n';
    if (place->isCitySection) continue;
    ++towns;
    const auto found = zone ? places->describe(place->coordinate, *zone) : std::nullopt;
    if (found && found->locality == place->name && found->country == place->country) continue;
    ++wrong;
    std::cout << place->name << ", " << place->country << " is found as "
              << (found ? std::string(found->locality.value_or("?")) + ", " +
                              std::string(found->country)
                        : "nothing")
              << " in " << zone.value_or("no zone") << '\n';
  }
  std::cout << places->placeCount() << " places, " << towns << " towns, " << wrong
            << " not found by their own position\n";
  return wrong == 0 ? 0 : 1;
}
