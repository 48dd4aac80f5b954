#pragma once

#include <optional>

#include "Adhan/PrayerTimes.hpp"

namespace Adhan {

/// Two recommended times of the night, which runs from a day's maghrib to the next day's fajr. To
/// the nearest minute, however the prayer times are rounded.
struct SunnahTimes {
  Date middleOfTheNight;
  Date lastThirdOfTheNight;  ///< When the last third of the night begins.

  /// For the night after that day. No result when the next day has no prayer times.
  [[nodiscard]] static std::optional<SunnahTimes> make(const PrayerTimes& today);

  /// For a night between those instants.
  [[nodiscard]] static SunnahTimes ofNight(Date maghrib, Date nextFajr);

  friend bool operator==(const SunnahTimes&, const SunnahTimes&) = default;
};

}  // namespace Adhan
