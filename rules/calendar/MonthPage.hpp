#pragma once

#include <optional>
#include <string>
#include <vector>

#include "datetime/Date.hpp"

namespace Hilalor {

/// Whether the cells of a month name their holidays.
enum class HolidayLabels { shown, hidden };

/// A day of the month grid with all that is drawn of it.
struct DayCell {
  int day = 1;                     ///< In the primary calendar.
  Date date;                       ///< The day's start.
  std::string secondaryDay;        ///< As in `CalendarModel::secondaryDay`.
  std::string secondaryMonthName;  ///< As in `CalendarModel::secondaryMonthName`.
  std::string holidayLabel;        ///< Empty where there is none or labels are hidden.
  bool isNewSecondary = false;     ///< A month of the secondary calendar begins.
  bool isToday = false;
  bool isWeekend = false;  ///< In the user's region.

  friend bool operator==(const DayCell&, const DayCell&) = default;
};

/// The month grid with all that is drawn of it.
struct MonthPage {
  std::string monthName;
  int year = 0;  ///< In the primary calendar.
  std::string secondaryMonthHeader;
  std::vector<std::optional<DayCell>> cells;  ///< As in `CalendarModel::days`.

  friend bool operator==(const MonthPage&, const MonthPage&) = default;
};

}  // namespace Hilalor
