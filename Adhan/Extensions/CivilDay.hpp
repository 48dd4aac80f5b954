#pragma once

#include <optional>

#include "Adhan/Extensions/UTCCalendar.hpp"

namespace Adhan {

/// The day of a date in UTC and the day after it.
struct CivilDay {
  Date midnight;      ///< 0h of the date's year, month and day.
  Date nextMidnight;  ///< 0h of the day after the date, with its time of day carried over.
  double julianDay = 0;

  /// No result without a year or out of the calendar's range.
  [[nodiscard]] static std::optional<CivilDay> of(const DateComponents& date);

  /// Of the day after.
  [[nodiscard]] double nextJulianDay() const;

  /// Whether the day after is just one day and one Julian day later. So it is for every real date
  /// of the years 1 to 9999.
  [[nodiscard]] bool isRegular() const;
};

}  // namespace Adhan
