#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "desktop/geodata/PlaceDatabase.hpp"
#include "desktop/geodata/ZoneDatabase.hpp"

namespace Hilalor::Desktop {

inline const std::filesystem::path kZoneFile = HILALOR_GEODATA "/zones/zones.bin";
inline const std::filesystem::path kPlaceFile = HILALOR_GEODATA "/places/places.bin";
inline const std::filesystem::path kNameFile = HILALOR_GEODATA "/names/names.bin";
inline const std::filesystem::path kMapFile = HILALOR_GEODATA "/map/map.bin";

inline std::vector<std::uint8_t> bytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The lines of a table beside the tests, comments left out, each cut at its tabs.
inline std::vector<std::vector<std::string>> rowsOf(const std::string& table) {
  std::ifstream file(HILALOR_GEODATA_TESTS "/" + table);
  std::vector<std::vector<std::string>> rows;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with('#')) continue;
    std::vector<std::string> row;
    std::istringstream fields(line);
    for (std::string field; std::getline(fields, field, '\t');)
      row.push_back(field);
    rows.push_back(row);
  }
  return rows;
}

/// The shipped databases, mapped.
class ShippedDataTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(zones) << kZoneFile;
    ASSERT_TRUE(places) << kPlaceFile;
  }

  [[nodiscard]] std::optional<PlaceDescription> describe(LocationCoordinate coordinate) const {
    const auto zone = zones->zoneAt(coordinate);
    return zone ? places->describe(coordinate, *zone) : std::nullopt;
  }

  std::optional<ZoneDatabase> zones = ZoneDatabase::open(kZoneFile);
  std::optional<PlaceDatabase> places = PlaceDatabase::open(kPlaceFile);
};

}  // namespace Hilalor::Desktop
