#pragma once

#include <unicode/calendar.h>

#include <cstdint>
#include <optional>

namespace Hilalor {

/// A month of the Umm al-Qura calendar. Days count from 1970-01-01, local.
struct UmmAlQuraMonth {
  std::int64_t year = 0;
  int month = 1;  ///< 1 to 12.
  std::int64_t firstDay = 0;
  int length = 0;  ///< 29 or 30 days.
};

/// The Umm al-Qura calendar on whole days: the one place that knows when its months begin.
///
/// The months of 1451 to 1500 AH begin as published, where ICU's table is a day late in every third
/// month. All others begin as in ICU's calendar, which goes by its table from 1300 to 1600 AH and
/// by the civil Islamic calendar before and after. Where people count from another night of the new
/// moon, all months begin so many days earlier or later; names and lengths stay. A view of an ICU
/// calendar set to GMT, whose fields are lost by every call.
///
/// ICU finds the fields of a day by walking through the table from its start, in some 30
/// microseconds; from the fields to the day it takes half a microsecond. So only the latter is
/// asked of it: the month is guessed from the mean length of months and set right by its
/// neighbours.
class UmmAlQura {
 public:
  /// `daysAhead` is how many days before those of the table all months begin, negative for after.
  explicit UmmAlQura(icu::Calendar& library, int daysAhead = 0)
      : library_(library), daysAhead_(daysAhead) {}

  /// The first day of the month. Months below 1 and above 12 carry over into the years before and
  /// after. None for a year that ICU cannot represent.
  [[nodiscard]] std::optional<std::int64_t> firstDay(std::int64_t year, std::int64_t month);

  /// The month that holds the day. None too far from our time for ICU.
  [[nodiscard]] std::optional<UmmAlQuraMonth> monthOf(std::int64_t day);

  /// The same day so many months later, or earlier for a negative number. The 30th of a month
  /// becomes the 29th in one that has no 30th.
  [[nodiscard]] std::optional<std::int64_t> addingMonths(std::int64_t months, std::int64_t day);

  /// The day's place in its year, 1 to 355.
  [[nodiscard]] std::optional<int> ordinalDay(std::int64_t day);

 private:
  [[nodiscard]] std::optional<std::int64_t> libraryFirstDay(std::int64_t year, int month);

  icu::Calendar& library_;
  int daysAhead_;
};

}  // namespace Hilalor
