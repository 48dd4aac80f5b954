#pragma once

#include "Adhan/Models/Shafaq.hpp"
#include "datetime/Date.hpp"

namespace Adhan {

using Hilalor::Seconds;

/// A day of a year at a latitude: what the length of twilight by the season hangs on.
struct Season {
  double latitude = 0;  ///< Degrees, north positive.
  int dayOfYear = 1;    ///< 1 to 366.
  int year = 1;
};

/// Twilight as the Moonsighting Committee Worldwide observed it between 55 degrees south and north:
/// a length that changes along straight lines between six days of the year.
///
/// From sunrise to the beginning of dawn, in whole seconds: negative.
[[nodiscard]] Seconds seasonalMorningTwilight(const Season& season);

/// From sunset to the end of the glow, in whole seconds: positive.
[[nodiscard]] Seconds seasonalEveningTwilight(const Season& season, Shafaq shafaq);

}  // namespace Adhan
