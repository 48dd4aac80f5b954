#include "rules/calendar/Weekdays.hpp"

#include <algorithm>

#include "datetime/Calendar.hpp"

namespace Hilalor {

std::vector<WeekdayColumn> orderedWeekdays() {
  std::vector<WeekdayColumn> columns = {{"Su", 1}, {"Mo", 2}, {"Tu", 3}, {"We", 4},
                                        {"Th", 5}, {"Fr", 6}, {"Sa", 7}};
  std::rotate(columns.begin(), columns.begin() + Calendar::current().firstWeekday() - 1,
              columns.end());
  return columns;
}

std::set<int> weekendWeekdays(Date now) {
  const auto calendar = Calendar::current();
  const auto today = calendar.startOfDay(now);
  std::set<int> weekend;
  for (int offset = 0; offset < 7; ++offset) {
    const auto day = calendar.adding(CalendarUnit::day, offset, today);
    if (day && calendar.isWeekend(*day)) weekend.insert(calendar.weekday(*day));
  }
  return weekend;
}

}  // namespace Hilalor
