#include "desktop/place/OfflineGeocoder.hpp"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <filesystem>
#include <fstream>

#include "desktop/geodata/PlaceFile.hpp"
#include "desktop/geodata/PlaceTable.hpp"
#include "desktop/process/Resources.hpp"
#include "rules/settings/UsualMethods.hpp"
#include "tests/fakes/VirtualLoop.hpp"

namespace Hilalor::Desktop {
namespace {

class OfflineGeocoderTest : public testing::Test {
 protected:
  std::vector<Placemark> placemarks(OfflineGeocoder& geocoder, LocationCoordinate coordinate) {
    std::optional<std::vector<Placemark>> answered;
    geocoder.reverseGeocode(coordinate, [&](const auto& placemarks) { answered = placemarks; });
    EXPECT_FALSE(answered) << "the answer comes on a later pass";
    loop.runPosted();
    EXPECT_TRUE(answered);
    return answered.value_or(std::vector<Placemark>{});
  }

  VirtualLoop loop;
};

TEST_F(OfflineGeocoderTest, NamesAPlaceWithItsTimeZone) {
  OfflineGeocoder geocoder(resourceFolder() / "geodata", loop);
  const auto found = placemarks(geocoder, {21.4225, 39.8262});
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].locality, "Makkah");
  EXPECT_EQ(found[0].administrativeArea, "Mecca Region");
  EXPECT_EQ(found[0].country, "Saudi Arabia");
  EXPECT_EQ(found[0].timeZone, TimeZone::named("Asia/Riyadh"));
  EXPECT_TRUE(placemarks(geocoder, {0, -30}).empty());
}

TEST_F(OfflineGeocoderTest, TellsTheZoneAndTheCountryOfWatersAndIslets) {
  OfflineGeocoder geocoder(resourceFolder() / "geodata", loop);
  const struct {
    LocationCoordinate coordinate;
    std::optional<std::string> country;
    const char* zone;
  } cases[] = {{{40.75, 28.5}, "Türkiye", "Europe/Istanbul"},
               {{-6.0, 106.85}, "Indonesia", "Asia/Jakarta"},
               {{25.30, 55.10}, "United Arab Emirates", "Asia/Dubai"},
               {{28.2072, -177.3735}, std::nullopt, "Pacific/Midway"},
               {{19.28, 166.65}, std::nullopt, "Pacific/Wake"}};
  for (const auto& [coordinate, country, zone] : cases) {
    SCOPED_TRACE(zone);
    const auto found = placemarks(geocoder, coordinate);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].locality, std::nullopt);
    EXPECT_EQ(found[0].country, country);
    EXPECT_EQ(found[0].timeZone, TimeZone::named(zone));
  }
}

TEST_F(OfflineGeocoderTest, NamesEveryCountryThatHasAUsualMethod) {
  const auto file =
      DataFile::open(resourceFolder() / "geodata" / "places" / "places.bin", PlaceFile::kKind);
  ASSERT_TRUE(file);
  const PlaceTable table(*file);
  int found = 0;
  for (std::uint32_t country = 0; !table.countryName(country).empty(); ++country)
    found += usualMethod(table.countryName(country)) ? 1 : 0;
  EXPECT_EQ(found, 42);
}

TEST_F(OfflineGeocoderTest, KnowsNoPlaceWithoutSoundData) {
  const QTemporaryDir folder;
  const std::filesystem::path path(folder.path().toStdString());
  OfflineGeocoder without(path, loop);
  EXPECT_TRUE(placemarks(without, {21.4225, 39.8262}).empty());

  for (const auto* name : {"zones", "places"}) {
    const auto file = path / name / (std::string(name) + ".bin");
    std::filesystem::create_directory(path / name);
    std::filesystem::copy(resourceFolder() / "geodata" / name / file.filename(), file);
    std::filesystem::resize_file(file, std::filesystem::file_size(file) / 2);
  }
  OfflineGeocoder damaged(path, loop);
  EXPECT_TRUE(placemarks(damaged, {21.4225, 39.8262}).empty());
}

}  // namespace
}  // namespace Hilalor::Desktop
