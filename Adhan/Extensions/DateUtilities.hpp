#pragma once

#include <cmath>
#include <limits>
#include <optional>

#include "Adhan/Extensions/UTCCalendar.hpp"
#include "Adhan/Models/Rounding.hpp"

namespace Adhan {

/// A time of day on a clock whose hours may lie below 0 or above 23.
struct ClockTime {
  int hour = 0;
  int minute = 0;
  int second = 0;

  [[nodiscard]] Seconds sinceMidnight() const {
    return std::chrono::hours(hour) + std::chrono::minutes(minute) + std::chrono::seconds(second);
  }
};

/// The time of day after so many hours, rounded down. The last bits of the fraction can make the
/// second -1. No result for 0, subnormal and non-finite hours, nor for hours that do not fit an
/// int: that is how a sun that does not rise, set or reach an angle shows.
[[nodiscard]] inline std::optional<ClockTime> clockTime(double hours) {
  constexpr double kLargest = std::numeric_limits<int>::max();
  if (!std::isnormal(hours) || !(std::abs(hours) <= kLargest)) return std::nullopt;
  // Quicker than std::floor where every value fits an int.
  const auto floored = [](double value) {
    const auto whole = static_cast<int>(value);
    return whole > value ? whole - 1 : whole;
  };
  const int hour = floored(hours);
  const int minute = floored((hours - hour) * 60);
  return ClockTime{hour, minute, floored((hours - (hour + minute / 60.0)) * 60 * 60)};
}

/// The fields with hour, minute and second set from `value`, hours with a fraction; the rest stays.
///
/// Hours below 0 or above 23 are kept for the calendar to carry. No result where `clockTime` has
/// none.
[[nodiscard]] std::optional<DateComponents> settingHour(const DateComponents& components,
                                                        double value);

/// The instant with its seconds rounded. A fraction of a second is dropped first, so that
/// 12:34:00.9 rounded up stays 12:34. An instant outside the calendar's range is returned as it is.
[[nodiscard]] Date roundedMinute(Date date, Rounding rounding);

}  // namespace Adhan
