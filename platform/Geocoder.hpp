#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "datetime/TimeZone.hpp"
#include "platform/LocationService.hpp"

namespace Hilalor {

/// What is known of a place; each part may be missing.
struct Placemark {
  std::optional<std::string> locality;            ///< Town: "Jeddah".
  std::optional<std::string> administrativeArea;  ///< First-level area: "Mecca Region".
  std::optional<std::string> country;             ///< "Saudi Arabia".
  std::optional<TimeZone> timeZone;
};

/// Names places. Main thread.
class Geocoder {
 public:
  /// The best placemark first; empty where nothing is known (at sea).
  using Answer = std::function<void(const std::vector<Placemark>&)>;

  virtual ~Geocoder() = default;

  /// Answers on a later pass of the main loop.
  virtual void reverseGeocode(LocationCoordinate coordinate, Answer answer) = 0;
};

}  // namespace Hilalor
