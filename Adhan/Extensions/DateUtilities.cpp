#include "Adhan/Extensions/DateUtilities.hpp"

#include <cmath>
#include <limits>

namespace Adhan {

std::optional<DateComponents> settingHour(const DateComponents& components, double value) {
  constexpr double kLargest = std::numeric_limits<int>::max();
  if (!std::isnormal(value) || std::abs(value) > kLargest) return std::nullopt;
  const double hours = std::floor(value);
  const double minutes = std::floor((value - hours) * 60);
  const double seconds = std::floor((value - (hours + minutes / 60)) * 60 * 60);
  DateComponents result = components;
  result.hour = static_cast<int>(hours);
  result.minute = static_cast<int>(minutes);
  result.second = static_cast<int>(seconds);
  return result;
}

Date roundedMinute(Date date, Rounding rounding) {
  DateComponents fields = gregorianUTC().components(date);
  if (!fields.second || !fields.minute) return date;
  if (rounding != Rounding::none) {
    const int firstToGoUp = rounding == Rounding::up ? 1 : 30;
    fields.minute = *fields.minute + (*fields.second >= firstToGoUp ? 1 : 0);
    fields.second = 0;
  }
  return gregorianUTC().date(fields).value_or(date);
}

}  // namespace Adhan
