#include "rules/map/MapViewport.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Hilalor {
namespace {

// Where Mercator's projection of the world is a square: atan(sinh(pi)).
constexpr double kLastLatitude = 85.05112877980659;
constexpr double kDegree = std::numbers::pi / 180;
constexpr double kNarrowestDegrees = 0.2;
// A tile larger than this shows how coarse its shapes are.
constexpr double kLargestTile = 512;

double northing(double latitude) {
  const double within = std::clamp(latitude, -kLastLatitude, kLastLatitude);
  return 0.5 - std::asinh(std::tan(within * kDegree)) / (2 * std::numbers::pi);
}

std::size_t fineEnough(const std::vector<int>& tileDegrees, double pixelsPerDegree) {
  std::size_t level = 0;
  while (level + 1 < tileDegrees.size() && tileDegrees[level] * pixelsPerDegree > kLargestTile)
    ++level;
  return level;
}

}  // namespace

WorldPoint projected(LocationCoordinate coordinate) {
  return {coordinate.longitude / 360 + 0.5, northing(coordinate.latitude)};
}

LocationCoordinate unprojected(WorldPoint point) {
  const double latitude = std::atan(std::sinh((0.5 - point.y) * 2 * std::numbers::pi)) / kDegree;
  return {latitude, (point.x - std::floor(point.x)) * 360 - 180};
}

void MapViewport::setSize(Size size) {
  size_ = {std::max(1.0, size.width), std::max(1.0, size.height)};
  keepWithinWorld();
}

void MapViewport::show(const MapRegion& region) {
  const double height = northing(region.centre.latitude - region.latitudeSpan / 2) -
                        northing(region.centre.latitude + region.latitudeSpan / 2);
  side_ = std::min(size_.width / (region.longitudeSpan / 360), size_.height / height);
  centreOn(region.centre);
}

void MapViewport::centreOn(LocationCoordinate coordinate) {
  middle_ = projected(coordinate);
  keepWithinWorld();
}

void MapViewport::pan(double right, double down) {
  middle_.x -= right / side_;
  middle_.y -= down / side_;
  keepWithinWorld();
}

void MapViewport::zoom(double factor, Point fixed) {
  const double before = side_;
  side_ = possibleSide(side_ * factor);
  // Not kept within the world on the way: at its ends that would move the fixed point.
  const double nearer = 1 / before - 1 / side_;
  middle_.x += (fixed.x - size_.width / 2) * nearer;
  middle_.y += (fixed.y - size_.height / 2) * nearer;
  keepWithinWorld();
}

double MapViewport::possibleSide(double side) const {
  const double smallest = std::max(size_.width, size_.height);
  return std::clamp(side, smallest, std::max(smallest, size_.width * 360 / kNarrowestDegrees));
}

void MapViewport::keepWithinWorld() {
  side_ = possibleSide(side_);
  const double halfHeight = size_.height / 2 / side_;
  middle_.x -= std::floor(middle_.x);
  middle_.y = std::clamp(middle_.y, halfHeight, 1 - halfHeight);
}

LocationCoordinate MapViewport::coordinateAt(Point point) const {
  return unprojected({middle_.x + (point.x - size_.width / 2) / side_,
                      middle_.y + (point.y - size_.height / 2) / side_});
}

Point MapViewport::pointOf(LocationCoordinate coordinate) const {
  return pointOf(projected(coordinate));
}

Point MapViewport::pointOf(WorldPoint point) const {
  return {size_.width / 2 + std::remainder(point.x - middle_.x, 1.0) * side_,
          size_.height / 2 + (point.y - middle_.y) * side_};
}

double MapViewport::pixelsPerDegree() const {
  return side_ / 360;
}

std::vector<VisibleTile> MapViewport::visibleTiles(const std::vector<int>& tileDegrees) const {
  std::vector<VisibleTile> visible;
  if (tileDegrees.empty()) return visible;
  const std::size_t level = fineEnough(tileDegrees, pixelsPerDegree());
  const int degrees = tileDegrees[level];
  const int columns = 360 / degrees;
  const int rows = 180 / degrees;
  const double left = size_.width / 2 - middle_.x * side_;  // Of the world, on the screen.
  const double top = size_.height / 2 - middle_.y * side_;
  const double tileWidth = side_ / columns;
  // Columns go on counting beyond the date line.
  const int firstColumn = static_cast<int>(std::floor(-left / tileWidth));
  const int lastColumn = static_cast<int>(std::ceil((size_.width - left) / tileWidth)) - 1;
  for (int row = 0; row < rows; ++row) {
    const double rowTop = top + northing((row + 1) * degrees - 90) * side_;
    const double rowBottom = top + northing(row * degrees - 90) * side_;
    if (rowTop >= size_.height || rowBottom <= 0 || rowTop >= rowBottom) continue;
    for (int column = firstColumn; column <= lastColumn; ++column) {
      const int around = (column % columns + columns) % columns;
      visible.push_back({{level, around, row},
                         left + column * tileWidth,
                         rowTop,
                         left + (column + 1) * tileWidth,
                         rowBottom});
    }
  }
  return visible;
}

}  // namespace Hilalor
