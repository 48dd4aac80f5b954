#include "rules/calendar/Weekdays.hpp"

#include <algorithm>

#include "datetime/Calendar.hpp"

namespace Hilalor {

std::vector<WeekdayColumn> orderedWeekdays(const Moment& moment) {
  std::vector<WeekdayColumn> columns = {{"Su", 1}, {"Mo", 2}, {"Tu", 3}, {"We", 4},
                                        {"Th", 5}, {"Fr", 6}, {"Sa", 7}};
  const int first = Calendar::ofUser(moment).firstWeekday();
  std::rotate(columns.begin(), columns.begin() + first - 1, columns.end());
  return columns;
}

std::set<int> weekendWeekdays(const Moment& moment) {
  const auto calendar = Calendar::ofUser(moment);
  const auto today = calendar.startOfDay(moment.now);
  std::set<int> weekend;
  for (int offset = 0; offset < 7; ++offset) {
    const auto day = calendar.adding(CalendarUnit::day, offset, today);
    if (day && calendar.isWeekend(*day)) weekend.insert(calendar.weekday(*day));
  }
  return weekend;
}

}  // namespace Hilalor
