#include "Adhan/Extensions/DateUtilities.hpp"

#include <cmath>
#include <cstdint>

namespace Adhan {

std::optional<DateComponents> settingHour(const DateComponents& components, double value) {
  const auto time = clockTime(value);
  std::optional<DateComponents> result;
  if (time) {
    result = components;
    result->hour = time->hour;
    result->minute = time->minute;
    result->second = time->second;
  }
  return result;
}

Date roundedMinute(Date date, Rounding rounding) {
  if (!(std::abs(date.secondsSince1970) < UTCCalendar::kFarthestSecond)) return date;
  // Without leap seconds every minute in UTC begins at a multiple of 60.
  const auto wholeMinutes = [](std::int64_t seconds) {
    const std::int64_t minutes = seconds / 60 - (seconds % 60 < 0 ? 1 : 0);
    return Date{static_cast<double>(minutes * 60)};
  };
  const auto second = static_cast<std::int64_t>(std::floor(date.secondsSince1970));
  switch (rounding) {
    case Rounding::nearest:
      return wholeMinutes(second + 30);
    case Rounding::up:
      return wholeMinutes(second + 59);
    case Rounding::none:
      break;
  }
  return {static_cast<double>(second)};
}

}  // namespace Adhan
