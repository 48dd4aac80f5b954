#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "datetime/TimeZone.hpp"
#include "platform/LocationService.hpp"

namespace Hilalor {

/// Where the running program found the machine to be. It keeps that in a file for the session, so
/// that commands, which ask no service, answer for the same place.
struct LocatedPlace : LocationCoordinate {
  std::string name;  ///< Empty where it has none.
  TimeZone zone;

  friend bool operator==(const LocatedPlace&, const LocatedPlace&) = default;
};

/// Puts the place in the file, for the user's eyes alone. What fails changes nothing.
void keepPlace(const std::filesystem::path& file, const LocatedPlace& place);

/// The place that the file has; none where there is no such file or it is not well-formed.
[[nodiscard]] std::optional<LocatedPlace> keptPlace(const std::filesystem::path& file);

}  // namespace Hilalor
