#include "Adhan/Astronomy/SolarDay.hpp"

namespace Adhan {

SolarDay::SolarDay(const SolarCoordinates& previousDay, const SolarCoordinates& thisDay,
                   const SolarCoordinates& nextDay)
    : previous(previousDay),
      day(thisDay),
      next(nextDay),
      rightAscension(Astronomical::Interpolation::ofTurning(
          previous.rightAscension, day.rightAscension, next.rightAscension)),
      declination(
          Astronomical::Interpolation::of(previous.declination, day.declination, next.declination)),
      sinDeclination(sin(day.declination)),
      cosDeclination(cos(day.declination)) {}

}  // namespace Adhan
