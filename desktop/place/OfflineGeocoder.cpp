#include "desktop/place/OfflineGeocoder.hpp"

#include <string>
#include <utility>

namespace Hilalor::Desktop {
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
  const auto zone = zones_ ? zones_->zoneAt(coordinate) : std::nullopt;
  if (!zone) return {};
  Placemark found;
  found.timeZone = TimeZone::named(*zone);
  // Also a point that nothing else is known of is not to be taken for one in the desktop's zone.
  const auto place = places_ ? places_->describe(coordinate, *zone) : std::nullopt;
  if (!place) return {found};
  found.locality = text(place->locality);
  found.administrativeArea = text(place->area);
  found.country = std::string(place->country);
  return {found};
}

}  // namespace Hilalor::Desktop
