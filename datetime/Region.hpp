#pragma once

#include <string>

namespace Hilalor {

/// The user's regional customs, from the environment as POSIX orders it: LC_ALL, else LC_TIME, else
/// LANG. The week follows the territory ("ar_SA.UTF-8" is Saudi Arabia's week, in any language).
struct Region {
  /// The locale's name without its encoding, "ar_SA"; "en_US_POSIX" where none is set or it is C.
  std::string localeIdentifier = "en_US_POSIX";

  /// The region the environment names now.
  [[nodiscard]] static Region current();

  friend bool operator==(const Region&, const Region&) = default;
};

}  // namespace Hilalor
