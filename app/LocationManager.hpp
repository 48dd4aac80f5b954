#pragma once

#include <optional>
#include <string>

#include "datetime/TimeZone.hpp"
#include "platform/LocationService.hpp"
#include "platform/Published.hpp"

namespace Hilalor {

/// Where the machine is, by one fix of the location service at a time, with the place's name and
/// time zone. Main thread.
class LocationManager {
 public:
  /// The process's manager, built over the installed platform on first use.
  [[nodiscard]] static LocationManager& shared();

  /// Drops the shared manager, so that the next use builds another. For tests.
  static void resetShared();

  explicit LocationManager(LocationService& service);

  /// The last fix; none until there is one.
  Published<std::optional<LocationCoordinate>> coordinate;

  /// The name of the last fix that was named; empty until then.
  Published<std::string> locationName;

  /// The time zone of the last fix that was named; the machine's until then.
  Published<TimeZone> detectedTimeZone;

  Published<AuthorizationStatus> authStatus;

  /// The service that permission is asked of.
  LocationService& manager;
};

}  // namespace Hilalor
