#pragma once

#include <string_view>

#include "Adhan/Models/Coordinates.hpp"
#include "Adhan/Models/RawValue.hpp"

namespace Adhan {

/// How much of the night fajr and isha may take where twilight lasts long or does not end.
enum class HighLatitudeRule {
  middleOfTheNight,   ///< Half of the night each.
  seventhOfTheNight,  ///< A seventh each.
  twilightAngle,      ///< A sixtieth for each degree of the twilight's angle.
};

template <>
inline constexpr std::array<std::string_view, 3> kRawValues<HighLatitudeRule>{
    "middleOfTheNight", "seventhOfTheNight", "twilightAngle"};

/// The rule for a place where none was chosen: the seventh north of 48 degrees, else the middle, in
/// the whole south too.
[[nodiscard]] constexpr HighLatitudeRule recommended(const Coordinates& place) {
  return place.latitude > 48 ? HighLatitudeRule::seventhOfTheNight
                             : HighLatitudeRule::middleOfTheNight;
}

}  // namespace Adhan
