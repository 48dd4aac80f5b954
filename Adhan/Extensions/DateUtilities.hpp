#pragma once

#include <optional>

#include "Adhan/Extensions/UTCCalendar.hpp"
#include "Adhan/Models/Rounding.hpp"

namespace Adhan {

/// The fields with hour, minute and second set from `value`, hours with a fraction; the rest stays.
///
/// Hours below 0 or above 23 are kept for the calendar to carry. The last bits of the fraction can
/// make the second -1. No result for 0, subnormal and non-finite hours, nor for hours that do not
/// fit an int: that is how a sun that does not rise, set or reach an angle shows.
[[nodiscard]] std::optional<DateComponents> settingHour(const DateComponents& components,
                                                        double value);

/// The instant with its seconds rounded. A fraction of a second is dropped first, so that
/// 12:34:00.9 rounded up stays 12:34. An instant outside the calendar's range is returned as it is.
[[nodiscard]] Date roundedMinute(Date date, Rounding rounding);

}  // namespace Adhan
