#pragma once

#include <limits>
#include <optional>

#include "Adhan/Extensions/UTCCalendar.hpp"
#include "Adhan/Models/Coordinates.hpp"

namespace Adhan {

inline constexpr Coordinates kRiyadh{24.6877, 46.7219};
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

inline DateComponents day(int year, int month, int day) {
  return {year, month, day, std::nullopt, std::nullopt, std::nullopt};
}

/// The instant in UTC.
inline Date at(int year, int month, int day, int hour, int minute = 0, int second = 0) {
  return gregorianUTC().date({year, month, day, hour, minute, second}).value();
}

}  // namespace Adhan
