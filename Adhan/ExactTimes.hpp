#pragma once

#include <optional>

#include "Adhan/Astronomy/Ephemeris.hpp"
#include "Adhan/Extensions/UTCCalendar.hpp"
#include "Adhan/Models/CalculationParameters.hpp"
#include "Adhan/Models/Coordinates.hpp"

namespace Adhan {

/// The six instants of a day as the sky and the rules for long twilights give them: `PrayerTimes`
/// before the minutes are added and the seconds rounded.
struct ExactTimes {
  Date fajr;
  Date sunrise;
  Date dhuhr;
  Date asr;
  Date maghrib;
  Date isha;

  /// Take and fail as those of `PrayerTimes`.
  [[nodiscard]] static std::optional<ExactTimes> make(const Coordinates& coordinates,
                                                      const DateComponents& date,
                                                      const CalculationParameters& parameters);
  [[nodiscard]] static std::optional<ExactTimes> make(const Coordinates& coordinates,
                                                      const DateComponents& date,
                                                      const CalculationParameters& parameters,
                                                      Ephemeris& ephemeris);

  friend bool operator==(const ExactTimes&, const ExactTimes&) = default;
};

}  // namespace Adhan
