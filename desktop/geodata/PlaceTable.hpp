#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "desktop/geodata/DataFile.hpp"
#include "platform/LocationService.hpp"

namespace Hilalor::Desktop {

/// Where the places of places.bin lie, in which area, and how many people live there; the places
/// are known by number. Lives no longer than the file.
class PlaceTable {
 public:
  struct Record {
    std::uint32_t cell = 0;
    std::uint16_t x = 0;  ///< In the cell, in 65536ths of a degree from its south-west corner.
    std::uint16_t y = 0;
    std::uint16_t area = 0;
    std::uint8_t populationClass = 0;  ///< Ten times the binary logarithm; 0 unknown.
    std::uint8_t flags = 0;

    [[nodiscard]] bool isCitySection() const { return (flags & 1) != 0; }
    /// How prominent a map shows it: from 0 for the largest cities to 14, and 15 for all others.
    [[nodiscard]] unsigned mapRank() const { return flags >> 4U; }
    /// The same without a gap, from 0 to 18 for a quarter of a city: who has no rank takes
    /// one by the number of people, a step for each doubling.
    [[nodiscard]] double labelRank() const;
    [[nodiscard]] LocationCoordinate coordinate() const;
    /// To about 4 %; 0 where unknown.
    [[nodiscard]] double population() const;
  };

  struct Area {
    std::uint32_t country = 0;
    std::string_view name;  ///< Empty where the area is not known.
  };

  /// The countries that share a time zone; `kNoCountry` fills the rest.
  static constexpr std::uint8_t kNoCountry = 0xFF;
  using Countries = std::array<std::uint8_t, 4>;

  explicit PlaceTable(const DataFile& file);

  /// Whether the sections' sizes fit each other.
  [[nodiscard]] bool isSound() const;

  [[nodiscard]] std::uint32_t count() const;

  /// The place of that number; none beyond the count.
  [[nodiscard]] std::optional<Record> record(std::uint32_t number) const;

  /// Why people look for a place.
  struct Standing {
    std::uint8_t populationClass = 0;  ///< As in its record.
    bool isCapital = false;            ///< Of its country.
    bool isHoly = false;               ///< Makkah, Madinah and Jerusalem.
  };

  /// None of it beyond the count.
  [[nodiscard]] Standing standing(std::uint32_t number) const;

  [[nodiscard]] Area area(std::uint16_t number) const;
  /// Empty beyond the last country.
  [[nodiscard]] std::string_view countryName(std::uint32_t country) const;

  /// None for a zone that is not known.
  [[nodiscard]] std::optional<Countries> countriesOf(std::string_view zone) const;

  /// Whether land is near: true up to 3 km from it, false from 20 km on.
  [[nodiscard]] bool isNearLand(LocationCoordinate coordinate) const;

  /// So many whole degrees to the north and east of a corner.
  struct Square {
    int west = 0;   ///< From -180.
    int south = 0;  ///< From -90.
    int side = 0;
  };

  /// Visits the places in the square, as much of it as is on the globe.
  void forEachIn(
      Square square,
      const std::function<void(std::uint32_t number, const Record& record)>& visit) const;

  using Visitor = std::function<void(std::uint32_t number, const Record& record, double km)>;

  /// Visits the places within so many kilometres of the coordinate, in no order.
  void forEachWithin(double km, LocationCoordinate coordinate, const Visitor& visit) const;

 private:
  struct Reach;

  [[nodiscard]] Record recordAt(std::uint32_t number, std::uint32_t cell) const;
  void visitCell(std::uint32_t cell, const Reach& reach, const Visitor& visit) const;

  Section countries_;
  Section areas_;
  Section zones_;
  Section texts_;
  Section cells_;
  Section records_;
  Section landRows_;
  Section landColumns_;
};

}  // namespace Hilalor::Desktop
