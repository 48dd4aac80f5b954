#pragma once

#include <set>
#include <string>
#include <vector>

#include "datetime/Moment.hpp"

namespace Hilalor {

/// A column of the month grid. Weekdays count from 1, Sunday, to 7, Saturday.
struct WeekdayColumn {
  std::string symbol;  ///< Two letters: "Su".
  int weekday = 1;

  friend bool operator==(const WeekdayColumn&, const WeekdayColumn&) = default;
};

/// The seven columns, from the first weekday of the user's region on.
[[nodiscard]] std::vector<WeekdayColumn> orderedWeekdays(const Moment& moment);

/// The weekdays that the user's region counts as weekend, in the week from the moment on.
[[nodiscard]] std::set<int> weekendWeekdays(const Moment& moment);

}  // namespace Hilalor
