#include <gmock/gmock.h>

#include <cmath>
#include <numbers>
#include <random>

#include "tests/desktop/geodata/ShippedData.hpp"

namespace Hilalor::Desktop {

// How a failed comparison shows a description.
std::ostream& operator<<(std::ostream& out, const PlaceDescription& place) {
  return out << place.locality.value_or("-") << ", " << place.area.value_or("-") << ", "
             << place.country;
}

namespace {

using testing::Contains;
using testing::ElementsAre;

double distanceKm(LocationCoordinate one, LocationCoordinate other) {
  const double east = std::remainder(one.longitude - other.longitude, 360.0) *
                      std::cos(one.latitude * std::numbers::pi / 180);
  return 111.2 * std::hypot(east, one.latitude - other.latitude);
}

class PlaceDatabaseTest : public ShippedDataTest {
 protected:
  [[nodiscard]] std::vector<std::string> found(std::string_view text, std::size_t limit) const {
    std::vector<std::string> names;
    for (const auto& place : places->search(text, limit))
      names.push_back(std::string(place.name) + ", " + std::string(place.country));
    return names;
  }
};

TEST_F(PlaceDatabaseTest, DescribesPointsByTownAreaAndCountry) {
  using std::nullopt;
  const struct {
    LocationCoordinate coordinate;
    std::optional<PlaceDescription> place;
  } kCases[] = {
      {{21.4225, 39.8262}, PlaceDescription{"Makkah", "Mecca Region", "Saudi Arabia"}},
      {{31.5017, 34.4668}, PlaceDescription{"Gaza", "Gaza Strip", "Palestine"}},
      {{-6.2, 106.8}, PlaceDescription{"Jakarta", "Jakarta", "Indonesia"}},
      // Across a river, across a border: the country decides before the distance.
      {{-4.3217, 15.3125}, PlaceDescription{"Kinshasa", "Kinshasa", "DR Congo"}},
      {{24.2500, 55.7900}, PlaceDescription{"Al Buraymī", "Al Buraimi", "Oman"}},
      // A quarter of a city goes by the city's name.
      {{-34.5627, -58.4583}, PlaceDescription{"Buenos Aires", "Buenos Aires F.D.", "Argentina"}},
      // The Empty Quarter: no town in reach, then no area either.
      {{22.5, 52.0}, PlaceDescription{nullopt, "Eastern Province", "Saudi Arabia"}},
      {{20.0, 50.5}, PlaceDescription{nullopt, nullopt, "Saudi Arabia"}},
      {{-82.0, 80.0}, PlaceDescription{nullopt, nullopt, "Antarctica"}},
      // Across the date line from the nearest town.
      {{-17.04, -179.99}, PlaceDescription{nullopt, "Northern", "Fiji"}},
      {{21.0, 38.0}, nullopt},
      {{0.0, -30.0}, nullopt},
  };
  for (const auto& [coordinate, place] : kCases) {
    EXPECT_EQ(describe(coordinate), place) << coordinate.latitude << ", " << coordinate.longitude;
  }
}

TEST_F(PlaceDatabaseTest, GivesATownsPositionItsOwnNameAndCountry) {
  std::mt19937 random(20240311);
  for (int towns = 0; towns < 1000;) {
    const auto town = places->place(static_cast<std::uint32_t>(random() % places->placeCount()));
    ASSERT_TRUE(town);
    if (town->isCitySection) continue;
    ++towns;
    SCOPED_TRACE(town->name);
    const auto place = describe(town->coordinate);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->country, town->country);
    if (place->locality == town->name) continue;
    const auto larger = places->search(place->locality.value_or(""), 50);
    EXPECT_THAT(larger, Contains(testing::Truly([&](const Place& other) {
                  return other.name == place->locality && other.population > town->population &&
                         distanceKm(other.coordinate, town->coordinate) < 3;
                })));
  }
}

TEST_F(PlaceDatabaseTest, KnowsNothingButACountryFarOutAtSea) {
  const auto points = rowsOf("sea_points.tsv");
  ASSERT_EQ(points.size(), 1000U);
  for (const auto& point : points) {
    SCOPED_TRACE(point[0] + ", " + point[1]);
    const auto place = describe({std::stod(point[0]), std::stod(point[1])});
    EXPECT_TRUE(!place || (!place->locality && !place->area));
  }
}

TEST_F(PlaceDatabaseTest, FindsPlacesByTheNamesThatPeopleUse) {
  const struct {
    std::string text;
    std::string first;
  } kCases[] = {
      {"makkah", "Makkah, Saudi Arabia"},
      {"Mecca", "Makkah, Saudi Arabia"},
      {"MEDINA", "Madinah, Saudi Arabia"},
      {"مكة", "Makkah, Saudi Arabia"},
      {"الرياض", "Riyadh, Saudi Arabia"},
      {"رياض", "Riyadh, Saudi Arabia"},
      {"القاهره", "Cairo, Egypt"},
      {"کراچی", "Karachi, Pakistan"},
      {"koln", "Köln, Germany"},
      {"Köln", "Köln, Germany"},
      {"cologne", "Köln, Germany"},
      {"taif", "Ta’if, Saudi Arabia"},
      {"sao paulo", "São Paulo, Brazil"},
      {"new york", "New York City, United States"},
      {"  dar   es-salaam ", "Dar es Salaam, Tanzania"},
  };
  for (const auto& [text, first] : kCases) {
    SCOPED_TRACE(text);
    EXPECT_THAT(found(text, 1), ElementsAre(first));
  }
}

TEST_F(PlaceDatabaseTest, FindsByTheBeginningOfAnyLongWordTheLikeliestFirst) {
  EXPECT_THAT(found("janeir", 5), Contains("Rio de Janeiro, Brazil"));
  // The larger of two, holy cities, a capital, the start of a name; an article does not count.
  EXPECT_THAT(found("tripoli", 2), ElementsAre("Tripoli, Libya", "Tripoli, Lebanon"));
  EXPECT_THAT(found("med", 2), ElementsAre("Madinah, Saudi Arabia", "Medan, Indonesia"));
  EXPECT_THAT(found("jer", 1), ElementsAre("Jerusalem, Israel"));
  EXPECT_THAT(found("ka", 1), ElementsAre("Kabul, Afghanistan"));
  EXPECT_THAT(found("paulo", 1), ElementsAre("Paulo Afonso, Brazil"));
  EXPECT_THAT(found("buraymi", 1), ElementsAre("Al Buraymī, Oman"));
  EXPECT_TRUE(found("qqqq", 5).empty());
  EXPECT_TRUE(found(" -'", 5).empty());
  EXPECT_TRUE(found("\xFF\xC3", 5).empty());
  EXPECT_TRUE(found("london", 0).empty());
}

TEST_F(PlaceDatabaseTest, FindsEveryPlaceByItsWholeName) {
  std::mt19937 random(1);
  for (int i = 0; i < 300; ++i) {
    const auto place = places->place(static_cast<std::uint32_t>(random() % places->placeCount()));
    ASSERT_TRUE(place);
    const auto same = places->search(place->name, 2000);
    EXPECT_THAT(same, Contains(testing::Field(&Place::coordinate, place->coordinate)))
        << place->name;
  }
}

TEST_F(PlaceDatabaseTest, RanksTheCapitalsOfTheWorldAboveVillages) {
  EXPECT_LE(places->search("london", 1).at(0).mapRank, 1U);
  EXPECT_EQ(places->search("koani ndogo", 1).at(0).mapRank, 15U);
  EXPECT_NEAR(places->search("makkah", 1).at(0).population, 1.58e6, 6e4);
}

}  // namespace
}  // namespace Hilalor::Desktop
