#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "platform/Atlas.hpp"

namespace Hilalor {

/// A world of one continent, a few borders and the places that the test says.
class FakeAtlas final : public Atlas {
 public:
  class Map final : public WorldMap {
   public:
    explicit Map(FakeAtlas& owner) : atlas_(owner) { ++atlas_.openMaps; }
    Map(const Map&) = delete;
    Map& operator=(const Map&) = delete;
    ~Map() override { --atlas_.openMaps; }

    [[nodiscard]] const std::vector<int>& tileDegrees() const override {
      return atlas_.tileDegrees;
    }
    void visitShapes(MapTile tile, const ShapeVisitor& visit) const override {
      for (const auto& shape : atlas_.shapes)
        if (shape.tile == tile) visit(shape.layer, shape.points);
    }
    [[nodiscard]] std::vector<MapPlace> places(MapTile tile, std::size_t limit) const override {
      const int side = atlas_.tileDegrees[tile.level];
      const auto isIn = [](double degrees, int from, int length) {
        return degrees >= from && degrees < from + length;
      };
      std::vector<MapPlace> found;
      for (const MapPlace& place : atlas_.places)
        if (isIn(place.coordinate.longitude, side * tile.column - 180, side) &&
            isIn(place.coordinate.latitude, side * tile.row - 90, side) && found.size() < limit)
          found.push_back(place);
      return found;
    }
    [[nodiscard]] std::vector<NamedArea> areas() const override { return atlas_.areas; }
    [[nodiscard]] std::vector<FoundPlace> search(std::string_view text,
                                                 std::size_t limit) const override {
      atlas_.searches.emplace_back(text);
      std::vector<FoundPlace> found;
      for (const FoundPlace& place : atlas_.findable)
        if (place.name.starts_with(text) && found.size() < limit) found.push_back(place);
      return found;
    }
    [[nodiscard]] std::string attribution() const override { return "Map by its makers"; }

   private:
    FakeAtlas& atlas_;
  };

  struct Shape {
    MapTile tile;
    MapLayer layer;
    std::vector<MapPoint> points;
  };

  [[nodiscard]] std::unique_ptr<WorldMap> open() override {
    if (real != nullptr) return real->open();
    return std::make_unique<Map>(*this);
  }

  Atlas* real = nullptr;  ///< Whose map is opened instead, if there is one.

  std::vector<int> tileDegrees{45, 10, 2};
  std::vector<Shape> shapes;
  std::vector<MapPlace> places;  ///< The most important first.
  std::vector<NamedArea> areas;
  std::vector<FoundPlace> findable;
  std::vector<std::string> searches;
  int openMaps = 0;
};

}  // namespace Hilalor
