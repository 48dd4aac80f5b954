#include "rules/bar/AppDelegate.hpp"

namespace Hilalor {
namespace {

constexpr const char* kDidRequestLocationPermission = "didRequestLocationPermission";

}  // namespace

AppDelegate::AppDelegate(const BarContext& context) : context_(context) {
  if (auto* updater = context_.platform.updater) updater->start();
}

bool AppDelegate::didRequestLocation(const DefaultsStore& store) {
  return store.boolean(kDidRequestLocationPermission).value_or(false);
}

void AppDelegate::applicationDidFinishLaunching() {
  // The bar has room for one item, and the application tells one controller.
  statusBarController_.reset();
  statusBarController_ = std::make_unique<StatusBarController>(context_, context_.platform.updater);
  requestLocationOnFirstRun();
}

void AppDelegate::requestLocationOnFirstRun() {
  auto& store = context_.platform.defaults;
  if (!store.isRead()) {
    cameIn_ = store.cameIn.subscribe([this] { requestLocationOnFirstRun(); });
    return;
  }
  if (didRequestLocation(store)) return;
  // Before the request, so that a user is asked once even if the program ends before they answer.
  store.setValue(kDidRequestLocationPermission, true);
  if (!store.string("locationMode")) {
    context_.settings.locationMode = LocationMode::automatic;
  }
  context_.locationManager.manager.requestWhenInUseAuthorization();
}

}  // namespace Hilalor
