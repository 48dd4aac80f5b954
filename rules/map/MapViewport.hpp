#pragma once

#include <vector>

#include "platform/Atlas.hpp"
#include "platform/Geometry.hpp"
#include "platform/LocationService.hpp"

namespace Hilalor {

/// A place in the map's projection, Mercator's on a sphere cut off at some 85 degrees: the square
/// of the world, x from 0 in the west to 1 in the east and y from 0 in the north to 1 in the south.
struct WorldPoint {
  double x = 0;
  double y = 0;
};

[[nodiscard]] WorldPoint projected(LocationCoordinate coordinate);
/// The other way round; whatever x, the longitude is from -180 to 180.
[[nodiscard]] LocationCoordinate unprojected(WorldPoint point);

/// What is in the middle of a map, and how much it shows at least from edge to edge.
struct MapRegion {
  LocationCoordinate centre;
  double latitudeSpan = 0;  ///< In degrees.
  double longitudeSpan = 0;
};

/// A tile that can be seen, and where its edges are on the screen.
struct VisibleTile {
  MapTile tile;
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
};

/// The part of the world in a rectangle of the screen: how large, and what is in the middle. It is
/// never higher than the world, shows nothing twice, and is at least a fifth of a degree wide.
/// Beyond the date line the world goes on.
class MapViewport {
 public:
  /// Keeps what is in the middle. In logical pixels, as all points on the screen here; they count
  /// from the rectangle's top left corner.
  void setSize(Size size);
  [[nodiscard]] Size size() const { return size_; }

  /// As large as the spans fit.
  void show(const MapRegion& region);

  /// The same with what is shown at the moment, as large as it is.
  void centreOn(LocationCoordinate coordinate);

  /// Moves what is shown to the right and down.
  void pan(double right, double down);

  /// Keeps what is at the fixed point where it is, unless an end of the world is in the way.
  void zoom(double factor, Point fixed);

  [[nodiscard]] LocationCoordinate coordinateAt(Point point) const;

  /// Where the coordinate is on the screen, or beyond its edges; of all copies the one nearest to
  /// the middle.
  [[nodiscard]] Point pointOf(LocationCoordinate coordinate) const;
  [[nodiscard]] Point pointOf(WorldPoint point) const;

  /// Of longitude.
  [[nodiscard]] double pixelsPerDegree() const;

  /// The tiles to draw, of the coarsest level that is fine enough. Takes the sides of the levels'
  /// tiles in degrees; empty where there are none.
  [[nodiscard]] std::vector<VisibleTile> visibleTiles(const std::vector<int>& tileDegrees) const;

 private:
  /// The nearest side with which the view shows neither more than the world nor too little of it.
  [[nodiscard]] double possibleSide(double side) const;
  void keepWithinWorld();

  Size size_{1, 1};
  WorldPoint middle_{0.5, 0.5};
  double side_ = 1;  // Of the world's square.
};

}  // namespace Hilalor
