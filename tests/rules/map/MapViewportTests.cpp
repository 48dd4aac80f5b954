#include "rules/map/MapViewport.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace Hilalor {
namespace {

constexpr Size kSize{640, 400};
constexpr Point kMiddle{320, 200};
const std::vector<int> kLevels{45, 10, 2};

MapViewport showing(LocationCoordinate centre, double latitudes, double longitudes) {
  MapViewport viewport;
  viewport.setSize(kSize);
  viewport.show({centre, latitudes, longitudes});
  return viewport;
}

void expectNear(LocationCoordinate one, LocationCoordinate other, double tolerance) {
  EXPECT_NEAR(one.latitude, other.latitude, tolerance);
  EXPECT_NEAR(std::remainder(one.longitude - other.longitude, 360.0), 0, tolerance);
}

TEST(MapProjection, IsMercators) {
  // Northings of the unit sphere from the tables of Mercator's projection: ln tan(45 + latitude/2).
  const struct {
    double latitude;
    double northing;
  } rows[] = {{0, 0}, {30, 0.549306}, {45, 0.881374}, {60, 1.316958}, {-80, -2.436246}};
  for (const auto& [latitude, northing] : rows) {
    SCOPED_TRACE(latitude);
    EXPECT_NEAR((0.5 - projected({latitude, 0}).y) * 2 * M_PI, northing, 1e-6);
  }
  EXPECT_NEAR(projected({85.0511287798, 0}).y, 0, 1e-9);
  EXPECT_GE(projected({90, 0}).y, 0);
}

TEST(MapProjection, GoesBothWays) {
  for (const LocationCoordinate coordinate :
       {LocationCoordinate{21.4225, 39.8262}, {-17.8, 179.99}, {64.15, -21.94}, {0, -180}})
    expectNear(unprojected(projected(coordinate)), coordinate, 1e-9);
  EXPECT_DOUBLE_EQ(unprojected({1, 0.5}).longitude, -180);
}

TEST(MapViewport, ShowsSoManyDegreesAroundTheCentre) {
  const struct {
    LocationCoordinate centre;
    double latitudes;
    double longitudes;
  } regions[] = {
      {{24, 45}, 90, 120}, {{21.5, 39.2}, 5, 5}, {{60, 10}, 5, 5}, {{-33.9, 151}, 5, 40}};
  for (const auto& [centre, latitudes, longitudes] : regions) {
    SCOPED_TRACE(centre.latitude);
    const auto viewport = showing(centre, latitudes, longitudes);
    expectNear(viewport.coordinateAt(kMiddle), centre, 1e-9);
    const double shownLatitudes =
        viewport.coordinateAt({0, 0}).latitude - viewport.coordinateAt({0, 400}).latitude;
    const double shownLongitudes = 640 / viewport.pixelsPerDegree();
    EXPECT_GE(shownLatitudes, latitudes - 0.01);
    EXPECT_GE(shownLongitudes, longitudes - 0.01);
    EXPECT_TRUE(shownLatitudes < latitudes * 1.1 || shownLongitudes < longitudes * 1.1);
  }
}

TEST(MapViewport, GoesOnBeyondTheDateLine) {
  const auto viewport = showing({-17.8, 179.5}, 5, 5);
  const auto east = viewport.coordinateAt({620, 200});
  EXPECT_TRUE(isOnGlobe(east));
  EXPECT_LT(east.longitude, -175);
  // Half a degree beyond the line is to the right of it, not on the other side of the world.
  const double perDegree = viewport.pixelsPerDegree();
  EXPECT_NEAR(viewport.pointOf(LocationCoordinate{-17.8, -179.5}).x, 320 + perDegree, 1e-6);
}

TEST(MapViewport, KeepsTheWorldsEndWhileZooming) {
  auto viewport = showing({21.5, 39.2}, 5, 5);
  viewport.pan(0, 1e6);
  viewport.zoom(0.7, {320, 20});
  EXPECT_NEAR(viewport.coordinateAt({0, 0}).latitude, 85.0511, 1e-4);
}

TEST(MapViewport, EndsAtTheWorldAndAtAFifthOfADegree) {
  auto viewport = showing({24, 45}, 5, 5);
  viewport.zoom(1e-6, kMiddle);
  EXPECT_NEAR(viewport.pixelsPerDegree() * 360, 640, 1e-6);
  viewport.pan(0, 1e6);
  EXPECT_NEAR(viewport.coordinateAt({0, 0}).latitude, 85.0511, 1e-4);
  viewport.pan(0, -1e6);
  EXPECT_NEAR(viewport.coordinateAt({0, 400}).latitude, -85.0511, 1e-4);
  viewport.zoom(1e9, kMiddle);
  EXPECT_NEAR(640 / viewport.pixelsPerDegree(), 0.2, 1e-9);
}

TEST(MapViewport, ShowsPlacesAtThePoles) {
  for (const double latitude : {90.0, -90.0, 87.0}) {
    const auto viewport = showing({latitude, 20}, 5, 5);
    EXPECT_TRUE(isOnGlobe(viewport.coordinateAt(kMiddle)));
    EXPECT_FALSE(viewport.visibleTiles(kLevels).empty());
  }
}

TEST(MapViewport, CoversTheScreenWithTilesOfTheCoarsestLevelThatIsFineEnough) {
  const struct {
    LocationCoordinate centre;
    double span;
    std::size_t level;
  } cases[] = {{{24, 45}, 90, 0}, {{50, 8}, 14, 1},     {{21.5, 39.2}, 5, 2},
               {{0, 0}, 0.2, 2},  {{-17.8, 180}, 5, 2}, {{60, -179}, 40, 0}};
  for (const auto& [centre, span, level] : cases) {
    SCOPED_TRACE(span);
    const auto viewport = showing(centre, span, span);
    const auto tiles = viewport.visibleTiles(kLevels);
    double area = 0;
    for (const VisibleTile& tile : tiles) {
      EXPECT_EQ(tile.tile.level, level);
      area += (std::min(640.0, tile.right) - std::max(0.0, tile.left)) *
              (std::min(400.0, tile.bottom) - std::max(0.0, tile.top));
    }
    EXPECT_NEAR(area, 640 * 400, 1);
  }
}

TEST(MapViewport, PutsTilesWhereTheirCornersAre) {
  const auto viewport = showing({-17.8, 179.5}, 5, 5);
  for (const VisibleTile& tile : viewport.visibleTiles(kLevels)) {
    const int degrees = kLevels[tile.tile.level];
    const double south = tile.tile.row * degrees - 90;
    const double west = tile.tile.column * degrees - 180;
    EXPECT_GE(west, -180);
    EXPECT_LT(west, 180);
    const Point corner = viewport.pointOf(LocationCoordinate{south, west});
    EXPECT_NEAR(corner.x, tile.left, 1e-6);
    EXPECT_NEAR(corner.y, tile.bottom, 1e-6);
  }
}

}  // namespace
}  // namespace Hilalor
