#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "Adhan/Astronomy/Ephemeris.hpp"
#include "Adhan/Models/CalculationParameters.hpp"
#include "Adhan/Models/Coordinates.hpp"
#include "datetime/Date.hpp"
#include "rules/prayer/PrayerDay.hpp"

namespace Hilalor {

/// The days of one place as its sun counts them, noon after noon: day n is the one whose noon lies
/// nearest to 12 o'clock, local mean time of the longitude, n days after 1 January 1970.
///
/// The engine names a day by the date in UTC of its noon. Near the date line that noon can wander
/// over midnight in UTC, as the sun runs ahead of the clock and back: the engine then has one noon
/// twice or not at all, and a night of none or two days spoils the twilights beside it. Those days
/// are found where they are whole, and what no day of the engine has is the mean of two places as
/// far to the east as to the west, whose noons keep clear of midnight: good to a second.
///
/// Days once computed are kept, the last few of them. Main thread.
class SolarDays {
 public:
  SolarDays(const Adhan::Coordinates& place, const Adhan::CalculationParameters& parameters);

  /// The number of the day that holds the instant, from midnight to midnight in local mean time.
  /// None where the instant or the longitude is not a number.
  [[nodiscard]] std::optional<std::int64_t> dayOf(Date instant) const;

  /// The day's times; none where the sun gives none.
  [[nodiscard]] std::optional<SixTimes> times(std::int64_t day);

  /// Whether these are the days of that place by those parameters.
  [[nodiscard]] bool areOf(const Adhan::Coordinates& place,
                           const Adhan::CalculationParameters& parameters) const;

 private:
  struct Kept {
    std::int64_t day;
    std::optional<SixTimes> times;
  };

  [[nodiscard]] std::optional<SixTimes> find(std::int64_t day);
  [[nodiscard]] std::optional<SixTimes> findNearMidnight(Date meanNoon);
  [[nodiscard]] std::optional<SixTimes> betweenNeighbours(Date meanNoon);

  Adhan::Coordinates place_;
  Adhan::CalculationParameters parameters_;
  double eastward_;  // Longitude in degrees, from -180 to 180.
  std::array<std::optional<Kept>, 16> kept_;
  Adhan::Ephemeris ephemeris_;
};

}  // namespace Hilalor
