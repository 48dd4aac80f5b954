#include "desktop/place/OfflineAtlas.hpp"

#include <gmock/gmock.h>

#include <QTemporaryDir>
#include <fstream>

#include "desktop/process/Resources.hpp"
#include "tests/fakes/VirtualLoop.hpp"

namespace Hilalor::Desktop {
namespace {

using testing::Field;
using testing::IsEmpty;

constexpr MapTile kArabia{.level = 0, .column = 4, .row = 2};

class OfflineAtlasTest : public testing::Test {
 protected:
  VirtualLoop loop;
  OfflineAtlas atlas{resourceFolder() / "geodata", loop};
};

TEST_F(OfflineAtlasTest, FindsPlacesWithTheirCountries) {
  const auto map = atlas.open();
  const auto found = map->search("مكه", 5);
  ASSERT_FALSE(found.empty());
  EXPECT_EQ(found[0].name, "Makkah");
  EXPECT_EQ(found[0].country, "Saudi Arabia");
  EXPECT_THAT(map->search("med", 7), testing::Contains(Field(&FoundPlace::name, "Madinah")));
  EXPECT_THAT(map->search("", 7), IsEmpty());
}

TEST_F(OfflineAtlasTest, NamesTheMostImportantPlacesOfATileFirst) {
  const auto map = atlas.open();
  const auto places = map->places(kArabia, 40);
  ASSERT_EQ(places.size(), 40U);
  EXPECT_TRUE(std::ranges::is_sorted(places, {}, &MapPlace::rank));
  EXPECT_THAT(places, testing::Contains(Field(&MapPlace::name, "Cairo")));
  for (const MapPlace& place : places) {
    EXPECT_TRUE(place.coordinate.latitude >= 0 && place.coordinate.latitude < 45) << place.name;
    EXPECT_TRUE(place.coordinate.longitude >= 0 && place.coordinate.longitude < 45) << place.name;
  }
}

TEST_F(OfflineAtlasTest, SaysWhomTheDataAreOwedTo) {
  const auto text = atlas.open()->attribution();
  for (const char* owner : {"GSHHG", "Natural Earth", "GeoNames", "OpenStreetMap"})
    EXPECT_THAT(text, testing::HasSubstr(owner));
}

TEST_F(OfflineAtlasTest, IsEmptyWithoutDataOrWithDamagedOnes) {
  const QTemporaryDir folder;
  const std::filesystem::path path = folder.path().toStdString();
  for (const bool isDamaged : {false, true}) {
    SCOPED_TRACE(isDamaged);
    if (isDamaged) {
      for (const char* file : {"map/map.bin", "places/places.bin"}) {
        std::filesystem::create_directories((path / file).parent_path());
        std::ofstream(path / file) << "HILM but nothing of a map";
      }
    }
    const auto map = OfflineAtlas(path, loop).open();
    EXPECT_THAT(map->tileDegrees(), IsEmpty());
    EXPECT_THAT(map->places(kArabia, 10), IsEmpty());
    EXPECT_THAT(map->search("mecca", 10), IsEmpty());
    map->visitShapes(kArabia, [](MapLayer, std::span<const MapPoint>) { FAIL(); });
  }
}

}  // namespace
}  // namespace Hilalor::Desktop
