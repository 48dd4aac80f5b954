#pragma once

#include <chrono>

#include "datetime/Calendar.hpp"

namespace Hilalor {

/// An instant by its Gregorian fields in UTC, without the calendar under test.
inline Date utc(int year, unsigned month, unsigned day, int hour = 0, int minute = 0,
                double second = 0) {
  using namespace std::chrono;
  const sys_days date = std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day);
  return Date{static_cast<double>(sys_seconds(date).time_since_epoch().count())} +
         Seconds(hour * 3600 + minute * 60 + second);
}

inline DateComponents fields(int year, int month, int day) {
  return {year, month, day, std::nullopt, std::nullopt, std::nullopt};
}

}  // namespace Hilalor
