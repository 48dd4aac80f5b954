#pragma once

#include "Adhan/Astronomy/Astronomical.hpp"
#include "Adhan/Astronomy/SolarCoordinates.hpp"

namespace Adhan {

/// The sun of one date, the same for every place: where it stands at 0h UTC of the day, of the day
/// before and of the day after, and what follows from these alone.
struct SolarDay {
  SolarDay(const SolarCoordinates& previousDay, const SolarCoordinates& thisDay,
           const SolarCoordinates& nextDay);

  SolarCoordinates previous;
  SolarCoordinates day;
  SolarCoordinates next;
  Astronomical::Interpolation rightAscension;
  Astronomical::Interpolation declination;
  double sinDeclination = 0;  ///< Of the day's declination.
  double cosDeclination = 0;
};

}  // namespace Adhan
