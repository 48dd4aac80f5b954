#include "rules/calendar/CalendarModel.hpp"

#include <utility>

#include "datetime/DateFormatter.hpp"
#include "rules/calendar/HolidaysProvider.hpp"

namespace Hilalor {
namespace {

// Six weeks hold every month, wherever in the week it begins.
constexpr int kCells = 6 * 7;

}  // namespace

CalendarModel::CalendarModel(Date date, PrimaryCalendar calendar, Calendar hijri)
    : displayDate(date),
      primaryCalendar(calendar),
      gregorianCalendar(CalendarIdentifier::gregorian),
      hijriCalendar(std::move(hijri)) {}

const Calendar& CalendarModel::primary() const {
  return primaryCalendar == PrimaryCalendar::hijri ? hijriCalendar : gregorianCalendar;
}

const Calendar& CalendarModel::secondary() const {
  return primaryCalendar == PrimaryCalendar::hijri ? gregorianCalendar : hijriCalendar;
}

std::string CalendarModel::monthName() const {
  return DateFormatter("MMMM", primary()).string(displayDate);
}

std::vector<std::optional<int>> CalendarModel::days() const {
  return days(Calendar::ofUser(Moment::at(displayDate)).firstWeekday());
}

std::vector<std::optional<int>> CalendarModel::days(int firstWeekday) const {
  const auto first = date(1);
  const auto count = primary().daysInMonth(displayDate);
  if (!first || !count) return {};
  const int leading = (gregorianCalendar.weekday(*first) - firstWeekday + 7) % 7;
  std::vector<std::optional<int>> cells(kCells);
  for (int day = 1; day <= *count; ++day)
    cells.at(static_cast<std::size_t>(leading + day - 1)) = day;
  return cells;
}

std::optional<int> CalendarModel::todayDay(Date now) const {
  if (!primary().isSameMonth(now, displayDate)) return std::nullopt;
  return primary().components(now).day;
}

std::optional<Date> CalendarModel::date(int day) const {
  const auto shown = primary().components(displayDate);
  if (!shown.year) return std::nullopt;
  DateComponents fields;
  fields.year = shown.year;
  fields.month = shown.month;
  fields.day = day;
  return primary().date(fields);
}

std::string CalendarModel::secondaryDay(int day) const {
  const auto start = date(day);
  const auto number = start ? secondary().components(*start).day : std::nullopt;
  return number ? std::to_string(*number) : "";
}

std::string CalendarModel::secondaryMonthName(int day) const {
  const auto start = date(day);
  if (!start || secondary().components(*start).day != 1) return "";
  return secondaryText("MMMM yyyy", *start);
}

std::string CalendarModel::secondaryMonthHeader() const {
  const auto count = primary().daysInMonth(displayDate);
  const auto first = date(1);
  const auto last = count ? date(*count) : std::nullopt;
  if (!first || !last) return "";
  if (secondary().components(*first).month == secondary().components(*last).month) {
    return secondaryText("MMMM yyyy", *first);
  }
  return secondaryText("MMM", *first) + " – " + secondaryText("MMM yyyy", *last);
}

MonthPage CalendarModel::page(const Moment& moment, HolidayLabels labels) const {
  MonthPage page{.monthName = monthName(),
                 .year = primary().components(displayDate).year.value_or(0),
                 .secondaryMonthHeader = secondaryMonthHeader(),
                 .cells = {}};
  const auto today = todayDay(moment.now);
  const auto region = Calendar::ofUser(moment);
  for (const auto& day : days(region.firstWeekday())) {
    auto& cell = page.cells.emplace_back();
    const auto start = day ? date(*day) : std::nullopt;
    if (!start) continue;
    cell = dayCell(*day, *start, labels);
    cell->isToday = day == today;
    cell->isWeekend = region.isWeekend(*start);
  }
  return page;
}

// Leaves out what depends on the clock and the region.
DayCell CalendarModel::dayCell(int day, Date start, HolidayLabels labels) const {
  const auto hijri = hijriCalendar.components(start);
  const auto gregorian = gregorianCalendar.components(start);
  const auto& beside = primaryCalendar == PrimaryCalendar::hijri ? gregorian : hijri;
  DayCell cell;
  cell.day = day;
  cell.date = start;
  cell.secondaryDay = std::to_string(beside.day.value_or(0));
  cell.isNewSecondary = beside.day == 1;
  if (cell.isNewSecondary) cell.secondaryMonthName = secondaryText("MMMM yyyy", start);
  if (labels == HolidayLabels::shown) {
    cell.holidayLabel = HolidaysProvider::label(HolidaysProvider::holidays(hijri, gregorian));
  }
  return cell;
}

std::string CalendarModel::secondaryText(const char* pattern, Date date) const {
  return DateFormatter(pattern, secondary()).string(date);
}

CalendarModel CalendarModel::previousMonth() const {
  return moved(CalendarUnit::month, -1);
}

CalendarModel CalendarModel::nextMonth() const {
  return moved(CalendarUnit::month, 1);
}

CalendarModel CalendarModel::previousYear() const {
  return moved(CalendarUnit::year, -1);
}

CalendarModel CalendarModel::nextYear() const {
  return moved(CalendarUnit::year, 1);
}

CalendarModel CalendarModel::moved(CalendarUnit unit, int amount) const {
  return {primary().adding(unit, amount, displayDate).value_or(displayDate), primaryCalendar,
          hijriCalendar};
}

}  // namespace Hilalor
