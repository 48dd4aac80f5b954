#include "desktop/geodata/PlaceDatabase.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <tuple>

#include "desktop/geodata/PlaceFile.hpp"

namespace Hilalor::Desktop {
namespace {

// A town reaches as far as its people would live at this density, within limits, and every town a
// little farther; beyond this many reaches it is sought in a wider circle.
constexpr double kPeoplePerSquareKm = 3000;
constexpr double kLargestRadiusKm = 25;
constexpr double kRadiusOfUnknownKm = 0.2;
constexpr double kOutskirtsKm = 1.5;
constexpr double kFarReaches = 4;

constexpr double kTownKm = 12;
constexpr double kFarTownKm = 35;
constexpr double kAreaKm = 300;

// What a match is worth beside the town's size, in the tenths of a doubling of its people. A name
// that begins so goes before one in which a later word does, be that town a thousand times as
// large.
constexpr int kHoly = 200;
constexpr int kStartOfName = 100;
constexpr int kWholeName = 80;
constexpr int kCapital = 60;
constexpr int kOwnName = 60;

double radiusKm(const PlaceTable::Record& record) {
  if (record.populationClass == 0) return kRadiusOfUnknownKm;
  const double squareKm = record.population() / kPeoplePerSquareKm;
  return std::min(kLargestRadiusKm, std::sqrt(squareKm / std::numbers::pi));
}

int worth(const PlaceNames::Match& match, const PlaceTable::Standing& place) {
  return place.populationClass + (place.isHoly ? kHoly : 0) + (match.isStart ? kStartOfName : 0) +
         (match.isWhole ? kWholeName : 0) + (place.isCapital ? kCapital : 0) +
         (match.isOwnName ? kOwnName : 0);
}

bool contains(const PlaceTable::Countries& countries, std::uint32_t country) {
  return std::find(countries.begin(), countries.end(), country) != countries.end();
}

}  // namespace

struct PlaceDatabase::Candidate {
  std::uint32_t number = 0;
  std::uint16_t area = 0;
  double reaches = 0;  // the distance, in reaches of the town
};

std::optional<PlaceDatabase> PlaceDatabase::open(const std::filesystem::path& path) {
  return of(DataFile::open(path, PlaceFile::kKind));
}

std::optional<PlaceDatabase> PlaceDatabase::over(std::span<const std::uint8_t> bytes) {
  return of(DataFile::over(bytes, PlaceFile::kKind));
}

std::optional<PlaceDatabase> PlaceDatabase::of(std::optional<DataFile> file) {
  if (!file) return std::nullopt;
  PlaceDatabase database(std::move(*file));
  if (!database.table_.isSound() || !database.names_.isSound()) return std::nullopt;
  return database;
}

PlaceDatabase::PlaceDatabase(DataFile file)
    : file_(std::move(file)), table_(file_), names_(file_, table_.count()) {}

std::optional<PlaceDescription> PlaceDatabase::describe(LocationCoordinate coordinate,
                                                        std::string_view zone) const {
  const auto countries = table_.countriesOf(zone);
  if (!countries || !isOnGlobe(coordinate)) return std::nullopt;
  const bool isNearLand = table_.isNearLand(coordinate);
  const auto town = isNearLand ? townAround(coordinate, *countries) : std::nullopt;
  const auto area = town ? table_.area(town->area) : nearestArea(coordinate, *countries);
  PlaceDescription description;
  if (town) description.locality = names_.name(town->number);
  if (isNearLand && area && !area->name.empty()) description.area = area->name;
  description.country = table_.countryName(area ? area->country : countries->front());
  if (description.country.empty()) return std::nullopt;
  return description;
}

std::optional<PlaceDatabase::Candidate> PlaceDatabase::townAround(
    LocationCoordinate coordinate, const PlaceTable::Countries& countries) const {
  const auto near = bestTown(kTownKm, coordinate, countries);
  if (near && near->reaches < kFarReaches) return near;
  return bestTown(kFarTownKm, coordinate, countries);
}

std::optional<PlaceDatabase::Candidate> PlaceDatabase::bestTown(
    double km, LocationCoordinate coordinate, const PlaceTable::Countries& countries) const {
  std::optional<Candidate> best;
  table_.forEachWithin(
      km, coordinate, [&](std::uint32_t number, const PlaceTable::Record& record, double distance) {
        if (record.isCitySection()) return;
        const double reaches = distance / (radiusKm(record) + kOutskirtsKm);
        if (best && best->reaches <= reaches) return;
        if (!contains(countries, table_.area(record.area).country)) return;
        best = {number, record.area, reaches};
      });
  return best;
}

std::optional<PlaceTable::Area> PlaceDatabase::nearestArea(
    LocationCoordinate coordinate, const PlaceTable::Countries& countries) const {
  std::optional<PlaceTable::Area> nearest;
  double nearestKm = kAreaKm;
  table_.forEachWithin(kAreaKm, coordinate,
                       [&](std::uint32_t, const PlaceTable::Record& record, double distance) {
                         if (distance > nearestKm) return;
                         const auto area = table_.area(record.area);
                         if (area.name.empty() || !contains(countries, area.country)) return;
                         nearest = area;
                         nearestKm = distance;
                       });
  return nearest;
}

std::vector<Place> PlaceDatabase::search(std::string_view text, std::size_t limit) const {
  struct Ranked {
    int rank;
    std::uint32_t number;
  };
  std::vector<Ranked> ranked;
  for (const auto& match : names_.search(text)) {
    ranked.push_back({worth(match, table_.standing(match.place)), match.place});
  }
  std::sort(ranked.begin(), ranked.end(), [](const Ranked& one, const Ranked& other) {
    return std::tie(other.rank, one.number) < std::tie(one.rank, other.number);
  });
  std::vector<Place> places;
  std::vector<std::uint32_t> taken;
  for (const auto& [rank, number] : ranked) {
    if (places.size() >= limit) break;
    if (std::find(taken.begin(), taken.end(), number) != taken.end()) continue;
    taken.push_back(number);
    if (const auto found = place(number)) places.push_back(*found);
  }
  return places;
}

std::vector<Place> PlaceDatabase::foremost(PlaceTable::Square square, std::size_t limit) const {
  struct Ranked {
    double rank;
    int populationClass;
    std::uint32_t number;
  };
  std::vector<Ranked> ranked;
  table_.forEachIn(square, [&](std::uint32_t number, const PlaceTable::Record& record) {
    ranked.push_back({record.labelRank(), record.populationClass, number});
  });
  const std::size_t count = std::min(limit, ranked.size());
  std::partial_sort(ranked.begin(), ranked.begin() + static_cast<std::ptrdiff_t>(count),
                    ranked.end(), [](const Ranked& one, const Ranked& other) {
                      return std::tie(one.rank, other.populationClass, one.number) <
                             std::tie(other.rank, one.populationClass, other.number);
                    });
  std::vector<Place> places;
  for (std::size_t i = 0; i < count; ++i)
    if (const auto found = place(ranked[i].number)) places.push_back(*found);
  return places;
}

std::optional<Place> PlaceDatabase::place(std::uint32_t number) const {
  const auto record = table_.record(number);
  if (!record) return std::nullopt;
  const auto area = table_.area(record->area);
  return Place{names_.name(number),
               area.name,
               table_.countryName(area.country),
               record->coordinate(),
               record->population(),
               record->isCitySection(),
               record->mapRank(),
               record->labelRank()};
}

}  // namespace Hilalor::Desktop
