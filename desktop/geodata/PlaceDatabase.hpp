#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "desktop/geodata/DataFile.hpp"
#include "desktop/geodata/PlaceNames.hpp"
#include "desktop/geodata/PlaceTable.hpp"
#include "platform/LocationService.hpp"

namespace Hilalor::Desktop {

/// A place as the data know it. Its texts live as long as the database.
struct Place {
  std::string_view name;
  std::string_view area;  ///< First-level area; empty where unknown.
  std::string_view country;
  LocationCoordinate coordinate;
  double population = 0;       ///< To about 4 %; 0 where unknown.
  bool isCitySection = false;  ///< A quarter of a city, and not a town.
  unsigned mapRank = 0;  ///< How prominent on a map: 0 to 14 from the largest on, 15 all others.
  double labelRank = 0;  ///< The same, those without a rank told apart by their people: to 18.
};

/// What is known of a point. Its texts live as long as the database.
struct PlaceDescription {
  std::optional<std::string_view> locality;
  std::optional<std::string_view> area;
  std::string_view country;

  friend bool operator==(const PlaceDescription&, const PlaceDescription&) = default;
};

/// The places of the world, from places.bin (its format is described beside it). The file is
/// mapped, not read. Any thread.
class PlaceDatabase {
 public:
  /// None when the file is not there or damaged.
  [[nodiscard]] static std::optional<PlaceDatabase> open(const std::filesystem::path& path);

  /// The same from bytes that outlive the result.
  [[nodiscard]] static std::optional<PlaceDatabase> over(std::span<const std::uint8_t> bytes);

  /// The point in a time zone: the town in whose reach it is, its area and its country; of waters
  /// and islets away from larger land the country alone. None outside the globe, in a zone without
  /// a country, or where the data are damaged.
  [[nodiscard]] std::optional<PlaceDescription> describe(LocationCoordinate coordinate,
                                                         std::string_view zone) const;

  /// The places with a name of which a word begins like the text, whatever its letter case and
  /// diacritics, also in the Arabic script. Names that begin so come first, and of those the holy
  /// cities, then capitals and large towns.
  [[nodiscard]] std::vector<Place> search(std::string_view text, std::size_t limit) const;

  /// The most prominent places in the square, the first of them first.
  [[nodiscard]] std::vector<Place> foremost(PlaceTable::Square square, std::size_t limit) const;

  [[nodiscard]] std::uint32_t placeCount() const { return table_.count(); }

  /// The place of that number; none beyond the count.
  [[nodiscard]] std::optional<Place> place(std::uint32_t number) const;

 private:
  struct Candidate;

  [[nodiscard]] static std::optional<PlaceDatabase> of(std::optional<DataFile> file);
  explicit PlaceDatabase(DataFile file);

  [[nodiscard]] std::optional<Candidate> townAround(LocationCoordinate coordinate,
                                                    const PlaceTable::Countries& countries) const;
  [[nodiscard]] std::optional<Candidate> bestTown(double km, LocationCoordinate coordinate,
                                                  const PlaceTable::Countries& countries) const;
  [[nodiscard]] std::optional<PlaceTable::Area> nearestArea(
      LocationCoordinate coordinate, const PlaceTable::Countries& countries) const;

  DataFile file_;
  PlaceTable table_;
  PlaceNames names_;
};

}  // namespace Hilalor::Desktop
