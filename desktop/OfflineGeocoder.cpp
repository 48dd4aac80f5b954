#include "desktop/OfflineGeocoder.hpp"

#include <string>
#include <utility>

namespace Hilalor {
namespace {

std::optional<std::string> text(const std::optional<std::string_view>& view) {
  return view ? std::optional<std::string>(*view) : std::nullopt;
}

}  // namespace

OfflineGeocoder::OfflineGeocoder(const std::filesystem::path& folder, RunLoop& loop)
    : loop_(loop),
      zones_(ZoneDatabase::open(folder / "zones" / "zones.bin")),
      places_(PlaceDatabase::open(folder / "places" / "places.bin")) {}

void OfflineGeocoder::reverseGeocode(LocationCoordinate coordinate, Answer answer) {
  loop_.post([found = placemarks(coordinate), answer = std::move(answer)] { answer(found); });
}

std::vector<Placemark> OfflineGeocoder::placemarks(LocationCoordinate coordinate) const {
  if (!zones_ || !places_) return {};
  const auto zone = zones_->zoneAt(coordinate);
  const auto place = zone ? places_->describe(coordinate, *zone) : std::nullopt;
  if (!place) return {};
  return {{text(place->locality), text(place->area), std::string(place->country),
           TimeZone::named(*zone)}};
}

}  // namespace Hilalor
