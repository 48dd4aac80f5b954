#include "Adhan/Extensions/DateUtilities.hpp"

#include <cmath>
#include <limits>

namespace Adhan {

std::optional<DateComponents> settingHour(const DateComponents& components, double value) {
  constexpr double kLargest = std::numeric_limits<int>::max();
  std::optional<DateComponents> result;
  if (std::isnormal(value) && std::abs(value) <= kLargest) {
    const double hours = std::floor(value);
    const double minutes = std::floor((value - hours) * 60);
    const double seconds = std::floor((value - (hours + minutes / 60)) * 60 * 60);
    result = components;
    result->hour = static_cast<int>(hours);
    result->minute = static_cast<int>(minutes);
    result->second = static_cast<int>(seconds);
  }
  return result;
}

Date roundedMinute(Date date, Rounding rounding) {
  const double second = std::floor(date.secondsSince1970);
  if (!(std::abs(second) <= UTCCalendar::kFarthestSecond)) return date;
  // Without leap seconds every minute in UTC begins at a multiple of 60.
  switch (rounding) {
    case Rounding::nearest:
      return {60 * std::floor((second + 30) / 60)};
    case Rounding::up:
      return {60 * std::ceil(second / 60)};
    case Rounding::none:
      break;
  }
  return {second};
}

}  // namespace Adhan
