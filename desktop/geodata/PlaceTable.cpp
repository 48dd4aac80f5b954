#include "desktop/geodata/PlaceTable.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "desktop/geodata/Bisection.hpp"
#include "desktop/geodata/PlaceFile.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr int kCellColumns = 360;
constexpr int kCellRows = 180;
constexpr std::uint32_t kCellCount = kCellColumns * kCellRows;
constexpr double kUnitsPerDegree = 65536;
constexpr double kKmPerDegree = 111.2;

constexpr std::size_t kCountrySize = 8;
constexpr std::size_t kAreaSize = 8;
constexpr std::size_t kZoneSize = 8;
constexpr std::size_t kRecordSize = 8;
constexpr unsigned kCapital = 2;
constexpr unsigned kHoly = 8;

// People without a rank of their own: so many doublings make up for all ranks.
constexpr double kDoublingsOfRanks = 25;
constexpr double kForemostUnranked = 9;
constexpr double kLastUnranked = 16;
constexpr double kStepOfCitySection = 2;

constexpr int kLandCellsPerDegree = 20;
constexpr std::uint32_t kLandRowCount = 180 * kLandCellsPerDegree;
constexpr std::uint32_t kLandColumnCount = 360 * kLandCellsPerDegree;

double westOf(std::uint32_t cell) {
  return static_cast<double>(cell % kCellColumns) - 180;
}

double southOf(std::uint32_t cell) {
  const std::uint32_t row = cell / kCellColumns;
  return static_cast<double>(row) - 90;
}

}  // namespace

// What lies within some distance of a point, on a plane that touches the globe there.
struct PlaceTable::Reach {
  Reach(double radiusKm, LocationCoordinate around)
      : km(radiusKm),
        middle(around),
        kmPerDegreeEast(kKmPerDegree *
                        std::max(0.01, std::cos(middle.latitude * std::numbers::pi / 180))),
        latitudes(km / kKmPerDegree),
        longitudes(std::min(179.0, km / kmPerDegreeEast)) {}

  [[nodiscard]] double distance(LocationCoordinate other) const {
    const double east = std::remainder(other.longitude - middle.longitude, 360.0);
    return std::hypot(east * kmPerDegreeEast, (other.latitude - middle.latitude) * kKmPerDegree);
  }

  double km;
  LocationCoordinate middle;
  double kmPerDegreeEast;
  double latitudes;  // to either side, in degrees
  double longitudes;
};

LocationCoordinate PlaceTable::Record::coordinate() const {
  return {southOf(cell) + y / kUnitsPerDegree, westOf(cell) + x / kUnitsPerDegree};
}

double PlaceTable::Record::population() const {
  return populationClass == 0 ? 0 : std::exp2(populationClass / 10.0);
}

double PlaceTable::Record::labelRank() const {
  constexpr unsigned kUnranked = 15;
  if (mapRank() < kUnranked) return mapRank();
  const double byPeople = kDoublingsOfRanks - populationClass / 10.0;
  return std::clamp(byPeople, kForemostUnranked, kLastUnranked) +
         (isCitySection() ? kStepOfCitySection : 0);
}

PlaceTable::PlaceTable(const DataFile& file)
    : countries_(file.section(PlaceFile::kCountries)),
      areas_(file.section(PlaceFile::kAreas)),
      zones_(file.section(PlaceFile::kZones)),
      texts_(file.section(PlaceFile::kTexts)),
      cells_(file.section(PlaceFile::kCells)),
      records_(file.section(PlaceFile::kRecords)),
      landRows_(file.section(PlaceFile::kLandRows)),
      landColumns_(file.section(PlaceFile::kLandColumns)) {}

bool PlaceTable::isSound() const {
  return countries_.size() % kCountrySize == 0 && areas_.size() % kAreaSize == 0 &&
         zones_.size() % kZoneSize == 0 && records_.size() % kRecordSize == 0 &&
         cells_.size() == 4 * (kCellCount + 1) && cells_.u32(4 * kCellCount) == count() &&
         landRows_.size() == 4 * (kLandRowCount + 1) &&
         landRows_.u32(4 * kLandRowCount) * std::size_t{2} == landColumns_.size();
}

std::uint32_t PlaceTable::count() const {
  return static_cast<std::uint32_t>(records_.size() / kRecordSize);
}

std::optional<PlaceTable::Record> PlaceTable::record(std::uint32_t number) const {
  if (number >= count()) return std::nullopt;
  // It is in the cell before the first that begins after it.
  const auto after = firstNotBefore(1U, kCellCount, [&](std::uint32_t cell) {
    return cells_.u32(std::size_t{4} * cell) <= number;
  });
  return recordAt(number, after - 1);
}

PlaceTable::Record PlaceTable::recordAt(std::uint32_t number, std::uint32_t cell) const {
  const std::size_t offset = kRecordSize * number;
  return {cell,
          records_.u16(offset),
          records_.u16(offset + 2),
          records_.u16(offset + 4),
          records_.u8(offset + 6),
          records_.u8(offset + 7)};
}

PlaceTable::Standing PlaceTable::standing(std::uint32_t number) const {
  const std::size_t offset = kRecordSize * number;
  const unsigned flags = records_.u8(offset + 7);
  return {records_.u8(offset + 6), (flags & kCapital) != 0, (flags & kHoly) != 0};
}

PlaceTable::Area PlaceTable::area(std::uint16_t number) const {
  const std::size_t offset = kAreaSize * number;
  if (offset >= areas_.size()) return {kNoCountry, {}};
  return {areas_.u32(offset), texts_.text(areas_.u32(offset + 4))};
}

std::string_view PlaceTable::countryName(std::uint32_t country) const {
  const std::size_t offset = kCountrySize * country;
  return offset < countries_.size() ? texts_.text(countries_.u32(offset + 4)) : std::string_view{};
}

std::optional<PlaceTable::Countries> PlaceTable::countriesOf(std::string_view zone) const {
  const std::size_t offset =
      kZoneSize * firstNotBefore<std::size_t>(0, zones_.size() / kZoneSize, [&](std::size_t i) {
        return texts_.text(zones_.u32(kZoneSize * i)) < zone;
      });
  if (offset >= zones_.size() || texts_.text(zones_.u32(offset)) != zone) return std::nullopt;
  Countries countries{};
  for (std::size_t i = 0; i < countries.size(); ++i)
    countries[i] = zones_.u8(offset + 4 + i);
  return countries;
}

bool PlaceTable::isNearLand(LocationCoordinate coordinate) const {
  if (!isOnGlobe(coordinate)) return false;
  const auto row =
      std::min(static_cast<std::uint32_t>((coordinate.latitude + 90) * kLandCellsPerDegree),
               kLandRowCount - 1);
  const auto column =
      std::min(static_cast<std::uint32_t>((coordinate.longitude + 180) * kLandCellsPerDegree),
               kLandColumnCount - 1);
  const std::uint32_t first = landRows_.u32(std::size_t{4} * row);
  const std::uint32_t last = landRows_.u32(std::size_t{4} * row + 4);
  const auto after = firstNotBefore(
      first, last, [&](std::uint32_t i) { return landColumns_.u16(std::size_t{2} * i) <= column; });
  // Up to the column runs of land have begun and ended by turns; an odd number leaves one open.
  return ((after - first) & 1U) != 0;
}

void PlaceTable::forEachIn(
    Square square,
    const std::function<void(std::uint32_t number, const Record& record)>& visit) const {
  const int firstRow = std::max(0, square.south + 90);
  const int firstColumn = std::max(0, square.west + 180);
  const int rowEnd = std::min(kCellRows, square.south + 90 + square.side);
  const int columnEnd = std::min(kCellColumns, square.west + 180 + square.side);
  for (int row = firstRow; row < rowEnd; ++row) {
    for (int column = firstColumn; column < columnEnd; ++column) {
      const auto cell = static_cast<std::uint32_t>(row * kCellColumns + column);
      const std::uint32_t last = std::min(cells_.u32(std::size_t{4} * cell + 4), count());
      for (std::uint32_t number = cells_.u32(std::size_t{4} * cell); number < last; ++number)
        visit(number, recordAt(number, cell));
    }
  }
}

void PlaceTable::forEachWithin(double km, LocationCoordinate coordinate,
                               const Visitor& visit) const {
  if (!isOnGlobe(coordinate)) return;
  const Reach reach(km, coordinate);
  const auto cellRow = [](double latitude) {
    return std::clamp(static_cast<int>(std::floor(latitude)) + 90, 0, kCellRows - 1);
  };
  const auto cellColumn = [](double longitude) {
    return static_cast<int>(std::floor(longitude)) + 180;
  };
  const int lastRow = cellRow(coordinate.latitude + reach.latitudes);
  const int firstColumn = cellColumn(coordinate.longitude - reach.longitudes);
  const int lastColumn =
      std::min(cellColumn(coordinate.longitude + reach.longitudes), firstColumn + kCellColumns - 1);
  for (int row = cellRow(coordinate.latitude - reach.latitudes); row <= lastRow; ++row) {
    for (int column = firstColumn; column <= lastColumn; ++column) {
      const int around = (column + kCellColumns) % kCellColumns;
      visitCell(static_cast<std::uint32_t>(row * kCellColumns + around), reach, visit);
    }
  }
}

void PlaceTable::visitCell(std::uint32_t cell, const Reach& reach, const Visitor& visit) const {
  const std::uint32_t last = std::min(cells_.u32(std::size_t{4} * cell + 4), count());
  const std::uint32_t first = cells_.u32(std::size_t{4} * cell);
  if (first >= last) return;
  // In a cell the places stand from south to north.
  const double south = (reach.middle.latitude - reach.latitudes - southOf(cell)) * kUnitsPerDegree;
  const double north = south + 2 * reach.latitudes * kUnitsPerDegree;
  auto number = firstNotBefore(
      first, last, [&](std::uint32_t i) { return records_.u16(kRecordSize * i + 2) < south; });
  for (; number < last; ++number) {
    const Record record = recordAt(number, cell);
    if (record.y > north) break;
    const double km = reach.distance(record.coordinate());
    if (km <= reach.km) visit(number, record, km);
  }
}

}  // namespace Hilalor::Desktop
