#pragma once

#include <vector>

namespace Hilalor {

/// A place on the globe in degrees, north and east positive.
struct LocationCoordinate {
  double latitude = 0;
  double longitude = 0;
  friend bool operator==(const LocationCoordinate&, const LocationCoordinate&) = default;
};

/// Whether there is such a place; there is none for what is not a number.
[[nodiscard]] constexpr bool isOnGlobe(LocationCoordinate coordinate) {
  return coordinate.latitude >= -90 && coordinate.latitude <= 90 && coordinate.longitude >= -180 &&
         coordinate.longitude <= 180;
}

/// Whether the user lets us know where they are.
enum class AuthorizationStatus {
  notDetermined = 0,  ///< Not asked yet.
  restricted = 1,     ///< The machine has no way to allow it.
  denied = 2,
  authorizedAlways = 3,
  authorizedWhenInUse = 4,
};

/// Finds out where the machine is, if the user allows it. Main thread.
class LocationService {
 public:
  /// Hears of the service's answers, on the main thread.
  class Delegate {
   public:
    virtual ~Delegate() = default;

    /// The status is known, or has changed. Also told once after the delegate was set.
    virtual void locationServiceDidChangeAuthorization() = 0;

    /// Answers to requests for a location, oldest first.
    virtual void locationServiceDidUpdate(const std::vector<LocationCoordinate>& locations) = 0;

    /// No location could be found.
    virtual void locationServiceDidFail() = 0;

    /// After a failure: a location may be found by now, for the network is back.
    virtual void locationServiceMayFindNow() = 0;
  };

  virtual ~LocationService() = default;

  /// Null for none; the delegate must outlive the service or be taken back.
  virtual void setDelegate(Delegate* delegate) = 0;

  [[nodiscard]] virtual AuthorizationStatus authorizationStatus() const = 0;

  /// Asks for one location, to about a kilometre.
  virtual void requestLocation() = 0;

  /// Asks the user to allow it; the answer comes as a change of the status.
  virtual void requestWhenInUseAuthorization() = 0;

  /// Finds out whether what was refused is allowed by now. Does nothing while it is not refused,
  /// and where the user would be made to say the same again and again.
  virtual void askAgain() = 0;
};

}  // namespace Hilalor
