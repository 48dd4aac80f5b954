#pragma once

#include <optional>

#include "Adhan/Extensions/UTCCalendar.hpp"

namespace Adhan {

inline DateComponents day(int year, int month, int day) {
  return {year, month, day, std::nullopt, std::nullopt, std::nullopt};
}

/// The instant in UTC.
inline Date at(int year, int month, int day, int hour, int minute = 0, int second = 0) {
  return gregorianUTC().date({year, month, day, hour, minute, second}).value();
}

}  // namespace Adhan
