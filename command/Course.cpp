#include "command/Course.hpp"

#include "rules/settings/AppSettings.hpp"
#include "rules/settings/LocationManager.hpp"

namespace Hilalor {
namespace {

// A command asks nobody where the machine is: that takes a bus, seconds, and the user's consent.
class NoLocation final : public LocationService, public Geocoder, public RunLoop {
 public:
  void setDelegate(Delegate*) override {}
  [[nodiscard]] AuthorizationStatus authorizationStatus() const override {
    return AuthorizationStatus::restricted;
  }
  void requestLocation() override {}
  void requestWhenInUseAuthorization() override {}
  void askAgain() override {}
  void reverseGeocode(LocationCoordinate, Answer) override {}
  void post(Task) override {}
  [[nodiscard]] std::unique_ptr<Timer> once(Seconds, Task) override { return nullptr; }
  [[nodiscard]] std::unique_ptr<Timer> repeating(Seconds, Task) override { return nullptr; }
  void after(Seconds, Task) override {}
  void inBackground(BackgroundWork) override {}
};

void apply(const Request& request, AppSettings& settings) {
  if (request.method) settings.calculationMethod = *request.method;
  if (!request.place) return;
  settings.locationMode = LocationMode::manual;
  settings.manualLatitude = request.place->latitude;
  settings.manualLongitude = request.place->longitude;
  settings.manualLocationName = std::string();
  settings.manualTimeZoneId = request.place->zone.identifier();
  // The user's minutes are those of the mosque at home.
  for (auto& minutes : settings.prayerMinutes)
    minutes = 0;
}

}  // namespace

struct Course::Parts {
  explicit Parts(DefaultsStore& store) : settings(store, location, {}) {}

  NoLocation nowhere;
  LocationManager location{nowhere, nowhere, nowhere};
  AppSettings settings;
  PrayerCourse prayers{settings};
};

Course::Course(DefaultsStore& store, const Told& told, const Request& request)
    : parts_(std::make_unique<Parts>(store)), isGiven_(request.place.has_value()) {
  if (told.place) {
    parts_->location.coordinate.assign(*told.place);
    parts_->location.locationName.assign(told.place->name);
    parts_->location.detectedTimeZone.assign(told.place->zone);
  }
  if (!isGiven_ && !request.method) announcement_ = told.announcement;
  apply(request, parts_->settings);
}

Course::~Course() = default;

const PrayerCourse& Course::prayers() const {
  return parts_->prayers;
}

PlaceSource Course::source() const {
  if (isGiven_) return PlaceSource::given;
  if (settings().locationMode == LocationMode::manual) {
    return settings().manualCoordinate() ? PlaceSource::settings : PlaceSource::fallback;
  }
  return parts_->location.coordinate.value() ? PlaceSource::located : PlaceSource::fallback;
}

}  // namespace Hilalor
