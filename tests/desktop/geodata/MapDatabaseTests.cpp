#include "desktop/geodata/MapDatabase.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "tests/desktop/geodata/ShippedData.hpp"

namespace Hilalor::Desktop {
namespace {

/// The tile of a level that has the coordinate, and where in it that is.
struct InTile {
  MapTile tile;
  double x, y;  // In units.
};

InTile inTile(LocationCoordinate coordinate, std::size_t level, int degrees) {
  const double x = (coordinate.longitude + 180) / degrees;
  const double y = (coordinate.latitude + 90) / degrees;
  return {{level, static_cast<int>(x), static_cast<int>(y)},
          (x - std::floor(x)) * kMapTileUnits,
          (y - std::floor(y)) * kMapTileUnits};
}

/// Whether the ring runs around the place: how often a ray to the east meets it.
bool encloses(std::span<const MapPoint> ring, double x, double y) {
  bool isInside = false;
  for (std::size_t i = 0, before = ring.size() - 1; i < ring.size(); before = i++) {
    if ((ring[i].y > y) == (ring[before].y > y)) continue;
    const double part = (y - ring[i].y) / (ring[before].y - ring[i].y);
    if (x < ring[i].x + part * (ring[before].x - ring[i].x)) isInside = !isInside;
  }
  return isInside;
}

class MapDatabaseTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(map); }

  [[nodiscard]] bool isIn(MapLayer wanted, LocationCoordinate coordinate, std::size_t level) const {
    const auto [tile, x, y] = inTile(coordinate, level, map->tileDegrees()[level]);
    bool isIn = false;
    map->visitShapes(tile, [&, x = x, y = y](MapLayer layer, std::span<const MapPoint> points) {
      if (layer == wanted && encloses(points, x, y)) isIn = true;
    });
    return isIn;
  }

  std::optional<MapDatabase> map = MapDatabase::open(kMapFile);
};

TEST_F(MapDatabaseTest, KnowsLandFromWaterAtEveryLevel) {
  const struct {
    const char* name;
    LocationCoordinate coordinate;
    bool isLand;
    bool isLake;
  } rows[] = {
      {"Riyadh", {24.69, 46.72}, true, false},  {"Red Sea", {20, 38.5}, false, false},
      {"mid Atlantic", {0, -30}, false, false}, {"Chukotka", {67, -178}, true, false},
      {"Antarctica", {-80, 60}, true, false},   {"Caspian Sea", {42, 50.5}, true, true},
      {"Lake Victoria", {-1, 33}, true, true},  {"Madagascar", {-19, 47}, true, false},
      {"Greenland", {72, -40}, true, false},
  };
  for (const auto& [name, coordinate, isLand, isLake] : rows) {
    for (std::size_t level = 0; level < map->tileDegrees().size(); ++level) {
      SCOPED_TRACE(name + std::to_string(level));
      EXPECT_EQ(isIn(MapLayer::land, coordinate, level), isLand);
      EXPECT_EQ(isIn(MapLayer::lake, coordinate, level), isLake);
    }
  }
}

TEST_F(MapDatabaseTest, KnowsShoresTheFinerTheLevel) {
  // A small island, and Jeddah's two sides of the shore.
  EXPECT_FALSE(isIn(MapLayer::land, {21.2, -157.0}, 2));
  EXPECT_TRUE(isIn(MapLayer::land, {21.13, -157.0}, 2));
  EXPECT_TRUE(isIn(MapLayer::land, {21.54, 39.2}, 2));
  EXPECT_FALSE(isIn(MapLayer::land, {21.54, 39.0}, 2));
}

TEST_F(MapDatabaseTest, HasShapesOfEveryLayer) {
  std::set<MapLayer> found;
  for (int column = 0; column < 36; ++column)
    for (int row = 0; row < 18; ++row)
      map->visitShapes({1, column, row}, [&](MapLayer layer, std::span<const MapPoint> line) {
        found.insert(layer);
        EXPECT_GE(line.size(), 2U);
      });
  EXPECT_EQ(found.size(), 5U);
}

TEST_F(MapDatabaseTest, HasNothingBeyondTheWorld) {
  const auto never = [](MapLayer, std::span<const MapPoint>) { FAIL(); };
  for (const MapTile tile : {MapTile{0, -1, 0}, {0, 8, 0}, {0, 0, -1}, {0, 0, 4}, {3, 0, 0}})
    map->visitShapes(tile, never);
}

}  // namespace
}  // namespace Hilalor::Desktop
