#include "app/LocationManager.hpp"

#include <memory>

#include "platform/Platform.hpp"

namespace Hilalor {
namespace {

std::unique_ptr<LocationManager>& sharedManager() {
  static std::unique_ptr<LocationManager> manager;
  return manager;
}

}  // namespace

LocationManager& LocationManager::shared() {
  auto& manager = sharedManager();
  if (!manager) manager = std::make_unique<LocationManager>(Platform::current().location);
  return *manager;
}

void LocationManager::resetShared() {
  sharedManager().reset();
}

LocationManager::LocationManager(LocationService& service)
    : detectedTimeZone(TimeZone::current()),
      authStatus(service.authorizationStatus()),
      manager(service) {}

}  // namespace Hilalor
