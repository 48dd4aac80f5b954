#include "desktop/place/OfflineAtlas.hpp"

#include <optional>
#include <string>
#include <utility>

#include "desktop/geodata/AreaNames.hpp"
#include "desktop/geodata/MapDatabase.hpp"
#include "desktop/geodata/PlaceDatabase.hpp"
#include "desktop/process/Heap.hpp"

namespace Hilalor::Desktop {
namespace {

class OfflineMap final : public WorldMap {
 public:
  OfflineMap(const std::filesystem::path& folder, RunLoop& loop)
      : loop_(loop),
        map_(MapDatabase::open(folder / "map" / "map.bin")),
        places_(PlaceDatabase::open(folder / "places" / "places.bin")),
        names_(folder / "names" / "names.bin") {}
  OfflineMap(const OfflineMap&) = delete;
  OfflineMap& operator=(const OfflineMap&) = delete;
  // Once the window with the map is gone as well.
  ~OfflineMap() override { loop_.post(giveBackFreeMemory); }

  [[nodiscard]] const std::vector<int>& tileDegrees() const override {
    static const std::vector<int> none;
    return map_ ? map_->tileDegrees() : none;
  }

  void visitShapes(MapTile tile, const ShapeVisitor& visit) const override {
    if (map_) map_->visitShapes(tile, visit);
  }

  [[nodiscard]] std::vector<MapPlace> places(MapTile tile, std::size_t limit) const override {
    if (!places_ || tile.level >= tileDegrees().size()) return {};
    const int side = tileDegrees()[tile.level];
    std::vector<MapPlace> places;
    for (const Place& place :
         places_->foremost({side * tile.column - 180, side * tile.row - 90, side}, limit))
      places.push_back({std::string(place.name), place.coordinate, place.labelRank});
    return places;
  }

  [[nodiscard]] std::vector<NamedArea> areas() const override { return readAreaNames(names_); }

  [[nodiscard]] std::vector<FoundPlace> search(std::string_view text,
                                               std::size_t limit) const override {
    std::vector<FoundPlace> found;
    if (!places_) return found;
    for (const Place& place : places_->search(text, limit)) {
      found.push_back({std::string(place.name), std::string(place.area), std::string(place.country),
                       place.coordinate});
    }
    return found;
  }

  [[nodiscard]] std::string attribution() const override {
    return "GSHHG \u00a9 Wessel & Smith \u00b7 Natural Earth \u00b7 \u00a9 GeoNames \u00b7 "
           "time zones \u00a9 OpenStreetMap contributors";
  }

 private:
  RunLoop& loop_;
  std::optional<MapDatabase> map_;
  std::optional<PlaceDatabase> places_;
  std::filesystem::path names_;
};

}  // namespace

OfflineAtlas::OfflineAtlas(std::filesystem::path folder, RunLoop& loop)
    : folder_(std::move(folder)), loop_(loop) {}

std::unique_ptr<WorldMap> OfflineAtlas::open() {
  return std::make_unique<OfflineMap>(folder_, loop_);
}

}  // namespace Hilalor::Desktop
