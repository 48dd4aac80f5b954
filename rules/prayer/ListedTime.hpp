#pragma once

#include <string_view>

#include "Adhan/Models/Prayer.hpp"

namespace Hilalor {

/// The times that are listed of a day, in their order: the engine's six, and two of the night.
enum class ListedTime {
  fajr,
  sunrise,
  dhuhr,
  asr,
  maghrib,
  isha,
  middleOfTheNight,
  lastThirdOfTheNight,
};

[[nodiscard]] constexpr ListedTime listed(Adhan::Prayer prayer) {
  return static_cast<ListedTime>(prayer);
}

/// Whether it is one of the two of the night.
[[nodiscard]] constexpr bool isSunnah(ListedTime time) {
  return time >= ListedTime::middleOfTheNight;
}

/// What the screens, the title and the banners call it: "Fajr", "Middle of Night".
[[nodiscard]] std::string_view displayName(ListedTime time);
[[nodiscard]] std::string_view displayName(Adhan::Prayer prayer);

}  // namespace Hilalor
