#pragma once

#include <unicode/calendar.h>

#include <cstdint>
#include <optional>

namespace Hilalor {

/// A month of the Umm al-Qura calendar. Days count from 1970-01-01, local.
struct UmmAlQuraMonth {
  int year = 0;
  int month = 1;
  std::int64_t firstDay = 0;
  int length = 0;  ///< 29 or 30 days.
};

/// The month that holds the day, by ICU's Umm al-Qura calendar set to GMT, whose fields are lost.
/// None outside 1300 to 1600 AH, the years of its table.
///
/// ICU itself finds the fields of a day by walking through the table from its start, in some 30
/// microseconds; from the fields to the day it takes half a microsecond. So the month is guessed
/// from the mean length of months and set right by its neighbours.
[[nodiscard]] std::optional<UmmAlQuraMonth> ummAlQuraMonth(icu::Calendar& calendar,
                                                           std::int64_t day);

}  // namespace Hilalor
