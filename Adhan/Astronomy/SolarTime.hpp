#pragma once

#include <optional>

#include "Adhan/Astronomy/Astronomical.hpp"
#include "Adhan/Astronomy/Ephemeris.hpp"
#include "Adhan/Astronomy/SolarCoordinates.hpp"
#include "Adhan/Models/Coordinates.hpp"
#include "datetime/DateComponents.hpp"

namespace Adhan {

using Hilalor::DateComponents;

/// The sun's way over one observer's sky on one civil day.
///
/// Times are fields in UTC: those of the day with hour, minute and second set. Their hours can lie
/// below 0 or above 23, where the event falls on the UTC day before or after.
struct SolarTime {
  DateComponents date;  ///< The day at 0h; seconds stay as they were given.
  Coordinates observer;
  SolarCoordinates solar;  ///< At 0h UTC of the day.
  DateComponents transit;
  DateComponents sunrise;  ///< The sun's upper edge on the horizon, with refraction.
  DateComponents sunset;
  SolarCoordinates prevSolar;  ///< The day before.
  SolarCoordinates nextSolar;  ///< The day after.
  double approxTransit = 0;    ///< A fraction of the day, in [0, 1) but for the last bit.

  /// Of the date's year, month and day. No result on a day on which the sun does not rise or set.
  [[nodiscard]] static std::optional<SolarTime> make(const DateComponents& date,
                                                     const Coordinates& observer);

  /// The same, with the sun's positions taken from those kept and added to them.
  [[nodiscard]] static std::optional<SolarTime> make(const DateComponents& date,
                                                     const Coordinates& observer,
                                                     Ephemeris& ephemeris);

  /// When the sun stands at `altitude`, negative below the horizon, before or after transit. No
  /// result when it does not on that day.
  [[nodiscard]] std::optional<DateComponents> timeForSolarAngle(Angle altitude,
                                                                bool afterTransit) const;

  /// When shadows are longer than at noon by `shadowLength` heights of the object that casts them.
  /// No result when they never are on that day.
  [[nodiscard]] std::optional<DateComponents> afternoon(int shadowLength) const;

 private:
  SolarTime(const DateComponents& midnight, const Coordinates& place, const SolarDay& sun);

  // The same once transit, sunrise and sunset are found; none when one of them is missing.
  [[nodiscard]] std::optional<SolarTime> withEvents() &&;

  [[nodiscard]] std::optional<DateComponents> timeOf(const Astronomical::Crossing& crossing,
                                                     bool afterTransit) const;

  Astronomical::Passage passage_;
};

}  // namespace Adhan
