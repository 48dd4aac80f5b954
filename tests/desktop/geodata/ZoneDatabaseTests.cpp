#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "datetime/TimeZone.hpp"
#include "desktop/geodata/Section.hpp"
#include "tests/desktop/geodata/ShippedData.hpp"

namespace Hilalor::Desktop {
namespace {

using ZoneDatabaseTest = ShippedDataTest;

TEST_F(ZoneDatabaseTest, KnowsTheZoneAtBordersOnIslandsInEnclavesAndAtSea) {
  const auto rows = rowsOf("zone_points.tsv");
  ASSERT_EQ(rows.size(), 68U);
  for (const auto& row : rows) {
    SCOPED_TRACE(row[3]);
    const auto zone = zones->zoneAt({std::stod(row[0]), std::stod(row[1])});
    const auto isRight = "|" + row[2] + "|";
    if (!zone) {
      EXPECT_THAT(row[2], testing::StartsWith("Etc/"));
    } else {
      EXPECT_THAT(isRight, testing::HasSubstr("|" + std::string(*zone) + "|"));
    }
  }
}

TEST_F(ZoneDatabaseTest, NamesOnlyZonesThatTheTimeZoneDatabaseKnows) {
  const auto bytes = bytesOf(kZoneFile);
  const Section file(bytes);
  const std::size_t names = file.u32(12);
  const std::size_t end = names + file.u32(16);
  int count = 0;
  for (std::size_t offset = names; offset < end; ++count) {
    const auto name = file.text(offset);
    EXPECT_TRUE(TimeZone::named(name)) << name;
    offset += name.size() + 1;
  }
  EXPECT_GT(count, 400);
}

TEST_F(ZoneDatabaseTest, HoldsToTheEdgesOfTheGlobeAndAnswersNothingBeyond) {
  EXPECT_EQ(zones->zoneAt({65.5, -180}), zones->zoneAt({65.5, -179.9999}));
  EXPECT_EQ(zones->zoneAt({-16.5, 180}), "Pacific/Fiji");
  EXPECT_TRUE(zones->zoneAt({-90, 0}));
  EXPECT_EQ(zones->zoneAt({90, 180}), std::nullopt);
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  for (const LocationCoordinate coordinate : {LocationCoordinate{kNone, 40},
                                              {21, kNone},
                                              {91, 40},
                                              {-90.1, 40},
                                              {21, 181},
                                              {21, -kInfinite}}) {
    EXPECT_EQ(zones->zoneAt(coordinate), std::nullopt);
    EXPECT_EQ(places->describe(coordinate, "Asia/Riyadh"), std::nullopt);
  }
}

}  // namespace
}  // namespace Hilalor::Desktop
