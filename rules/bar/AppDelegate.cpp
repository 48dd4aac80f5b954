#include "rules/bar/AppDelegate.hpp"

#include "platform/Platform.hpp"
#include "rules/settings/AppSettings.hpp"
#include "rules/settings/LocationManager.hpp"

namespace Hilalor {
namespace {

constexpr const char* kDidRequestLocationPermission = "didRequestLocationPermission";

}  // namespace

AppDelegate::AppDelegate() {
  if (auto* updater = Platform::current().updater) updater->start();
}

bool AppDelegate::didRequestLocation(const DefaultsStore& store) {
  return store.boolean(kDidRequestLocationPermission).value_or(false);
}

void AppDelegate::applicationDidFinishLaunching() {
  // The bar has room for one item, and the application tells one controller.
  statusBarController_.reset();
  statusBarController_ = std::make_unique<StatusBarController>(Platform::current().updater);
  requestLocationOnFirstRun();
}

void AppDelegate::requestLocationOnFirstRun() {
  auto& store = Platform::current().defaults;
  if (!store.isRead()) {
    cameIn_ = store.cameIn.subscribe([this] { requestLocationOnFirstRun(); });
    return;
  }
  if (didRequestLocation(store)) return;
  // Before the request, so that a user is asked once even if the program ends before they answer.
  store.setValue(kDidRequestLocationPermission, true);
  if (!store.string("locationMode")) {
    AppSettings::shared().locationMode = LocationMode::automatic;
  }
  LocationManager::shared().manager.requestWhenInUseAuthorization();
}

}  // namespace Hilalor
