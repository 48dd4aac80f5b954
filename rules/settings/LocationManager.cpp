#include "rules/settings/LocationManager.hpp"

namespace Hilalor {
namespace {

/// The finest part of the place that is known.
std::string nameOf(const Placemark& place) {
  for (const auto& part : {place.locality, place.administrativeArea, place.country}) {
    if (part) return *part;
  }
  return "My Location";
}

}  // namespace

LocationManager::LocationManager(LocationService& service, Geocoder& geocoder, RunLoop& loop)
    : manager(service), geocoder_(geocoder), loop_(loop) {
  manager.setDelegate(this);
  authStatus.assign(manager.authorizationStatus());
}

LocationManager::~LocationManager() {
  manager.setDelegate(nullptr);
}

void LocationManager::lookAgain() {
  manager.askAgain();
  retryFix();
}

void LocationManager::retryFix() {
  if (!isFixMissing_ || manager.authorizationStatus() != AuthorizationStatus::authorizedAlways) {
    return;
  }
  isFixMissing_ = false;
  manager.requestLocation();
}

void LocationManager::locationServiceDidChangeAuthorization() {
  loop_.post(lifetime_.whileAlive([this] { authStatus.assign(manager.authorizationStatus()); }));
  if (manager.authorizationStatus() == AuthorizationStatus::authorizedAlways) {
    isFixMissing_ = false;
    manager.requestLocation();
  }
}

void LocationManager::locationServiceDidUpdate(const std::vector<LocationCoordinate>& locations) {
  if (locations.empty()) return;
  isFixMissing_ = false;
  const auto latest = locations.back();
  loop_.post(lifetime_.whileAlive([this, latest] { coordinate.assign(latest); }));
  geocoder_.reverseGeocode(
      latest,
      lifetime_.whileAlive([this](const std::vector<Placemark>& placemarks) { take(placemarks); }));
}

void LocationManager::take(const std::vector<Placemark>& placemarks) {
  if (placemarks.empty()) return;
  const auto& place = placemarks.front();
  locationName.assign(nameOf(place));
  detectedTimeZone.assign(place.timeZone ? *place.timeZone : TimeZone::current());
}

}  // namespace Hilalor
