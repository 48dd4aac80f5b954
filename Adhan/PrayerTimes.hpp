#pragma once

#include <iosfwd>
#include <optional>

#include "Adhan/Astronomy/Ephemeris.hpp"
#include "Adhan/Extensions/UTCCalendar.hpp"
#include "Adhan/Models/CalculationParameters.hpp"
#include "Adhan/Models/Coordinates.hpp"
#include "Adhan/Models/Prayer.hpp"

namespace Adhan {

/// The six times of one day at one place, adjusted and rounded, with what they were computed from.
/// A value; `make` computes it in a few microseconds and without allocating.
struct PrayerTimes {
  Date fajr;
  Date sunrise;
  Date dhuhr;
  Date asr;
  Date maghrib;
  Date isha;
  Coordinates coordinates;
  DateComponents date;
  CalculationParameters calculationParameters;

  /// `date` names a civil day by year, month and day: the times are those around the noon at the
  /// place that falls within that day in UTC. This is the noon of the place's own day of that date,
  /// except near the date line, where the clock is ahead of the sun (Apia, Kiritimati; Suva in
  /// spring): there it is the next day's, and on the one day of the year on which that noon passes
  /// midnight in UTC, a night is missing from the times or of negative length.
  ///
  /// No result without a year or for a day beyond the calendar's range, when the sun does not rise
  /// or set on the day or the next (polar day and night), or does not sink to the height of asr.
  /// Nonsense for coordinates or parameters gives no result or finite times.
  [[nodiscard]] static std::optional<PrayerTimes> make(
      const Coordinates& coordinates, const DateComponents& date,
      const CalculationParameters& calculationParameters);

  /// The same times to the last bit, with the sun's positions taken from those kept and added to
  /// them: for days in a row at one place, or for many places on one date.
  [[nodiscard]] static std::optional<PrayerTimes> make(
      const Coordinates& coordinates, const DateComponents& date,
      const CalculationParameters& calculationParameters, Ephemeris& ephemeris);

  /// The last prayer whose time has come, at its exact instant too; none before fajr.
  [[nodiscard]] std::optional<Prayer> currentPrayer(Date at) const;

  /// The prayer after the current one; none from isha on.
  [[nodiscard]] std::optional<Prayer> nextPrayer(Date at) const;

  [[nodiscard]] Date time(Prayer prayer) const;

  friend bool operator==(const PrayerTimes&, const PrayerTimes&) = default;
};

/// The six times, for test failures.
std::ostream& operator<<(std::ostream& out, const PrayerTimes& times);

}  // namespace Adhan
