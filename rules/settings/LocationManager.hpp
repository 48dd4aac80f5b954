#pragma once

#include <optional>
#include <string>
#include <vector>

#include "datetime/TimeZone.hpp"
#include "platform/Geocoder.hpp"
#include "platform/Lifetime.hpp"
#include "platform/LocationService.hpp"
#include "platform/Published.hpp"
#include "platform/RunLoop.hpp"
#include "platform/Signal.hpp"
#include "rules/Shared.hpp"

namespace Hilalor {

/// Where the machine is, by one fix of the location service at a time, with the place's name and
/// time zone. A fix is asked for once at every report that the user allows it. A failure changes
/// nothing. A fix is tried again when something has happened that may make it work, never because
/// time has passed. Main thread.
class LocationManager final : public Shared<LocationManager>, private LocationService::Delegate {
 public:
  /// Asks neither for permission nor for a fix.
  LocationManager(LocationService& service, Geocoder& geocoder, RunLoop& loop);
  ~LocationManager() override;
  LocationManager(const LocationManager&) = delete;
  LocationManager& operator=(const LocationManager&) = delete;

  /// The user looks at what depends on the place: finds out whether what was refused is allowed by
  /// now, and asks for the fix that did not come.
  void lookAgain();

  /// Asks for the fix that did not come, if the last one did not.
  void retryFix();

  /// Told before any of the values below changes.
  Signal<> willChange;

  /// The last fix; none until there is one.
  Published<std::optional<LocationCoordinate>> coordinate{std::nullopt, &willChange};

  /// The name of the last fix that was named; empty until then.
  Published<std::string> locationName{"", &willChange};

  /// The time zone of the last fix that was named; the machine's until then.
  Published<TimeZone> detectedTimeZone{TimeZone::current(), &willChange};

  Published<AuthorizationStatus> authStatus{AuthorizationStatus::notDetermined, &willChange};

  /// The service that permission is asked of.
  LocationService& manager;

 private:
  void locationServiceDidChangeAuthorization() override;
  void locationServiceDidUpdate(const std::vector<LocationCoordinate>& locations) override;
  void locationServiceDidFail() override { isFixMissing_ = true; }
  void locationServiceMayFindNow() override { retryFix(); }

  void take(const std::vector<Placemark>& placemarks);

  Geocoder& geocoder_;
  RunLoop& loop_;
  bool isFixMissing_ = false;
  Lifetime lifetime_;
};

}  // namespace Hilalor
