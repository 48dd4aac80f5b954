#pragma once

#include <optional>
#include <string>
#include <vector>

#include "datetime/Calendar.hpp"
#include "datetime/Date.hpp"
#include "datetime/Moment.hpp"
#include "rules/calendar/MonthPage.hpp"
#include "rules/settings/SettingsValues.hpp"

namespace Hilalor {

/// A month as the panel shows it: laid out in the primary calendar, with the other of the two
/// calendars beside it. Days of the month count from 1. Calendars work in the machine's time zone,
/// texts are English. A value: nothing is kept from one call to the next. Main thread.
class CalendarModel {
 public:
  /// The Hijri calendar may be one that the user has moved.
  CalendarModel(Date date, PrimaryCalendar calendar,
                Calendar hijri = Calendar(CalendarIdentifier::islamicUmmAlQura));

  /// Any instant of the shown month.
  Date displayDate;
  PrimaryCalendar primaryCalendar;
  Calendar gregorianCalendar;
  Calendar hijriCalendar;

  /// "March", or "Ramadan".
  [[nodiscard]] std::string monthName() const;

  /// The grid's 42 cells, row by row from the first weekday of the user's region on: a day's number
  /// or nothing. Empty where the calendar has no such month.
  [[nodiscard]] std::vector<std::optional<int>> days() const;

  /// The same for a week that begins on that weekday, 1 (Sunday) to 7.
  [[nodiscard]] std::vector<std::optional<int>> days(int firstWeekday) const;

  /// The day of the month that it is at that instant; none while another month is shown.
  [[nodiscard]] std::optional<int> todayDay(Date now) const;

  /// The start of that day of the month: midnight, or the first moment of a day without one. A day
  /// that the month lacks carries over into its neighbours: day 31 of a month of 30 days is the
  /// first of the next, day 0 the last of the one before. The same holds for the texts of a day
  /// below.
  [[nodiscard]] std::optional<Date> date(int day) const;

  /// The day's number in the secondary calendar; empty where the calendar has no such month.
  [[nodiscard]] std::string secondaryDay(int day) const;

  /// Name and year of the secondary month that begins on the day, "Ramadan 1446"; empty on any
  /// other day.
  [[nodiscard]] std::string secondaryMonthName(int day) const;

  /// The secondary month of the whole month, "March 2025", or those of its first and last day,
  /// "Feb – Mar 2025".
  [[nodiscard]] std::string secondaryMonthHeader() const;

  /// All that is drawn of the month at the moment, in one pass over its days.
  [[nodiscard]] MonthPage page(const Moment& moment, HolidayLabels labels) const;

  /// The neighbouring months and years of the primary calendar; the same month where it ends.
  [[nodiscard]] CalendarModel previousMonth() const;
  [[nodiscard]] CalendarModel nextMonth() const;
  [[nodiscard]] CalendarModel previousYear() const;
  [[nodiscard]] CalendarModel nextYear() const;

 private:
  [[nodiscard]] const Calendar& primary() const;
  [[nodiscard]] const Calendar& secondary() const;
  [[nodiscard]] DayCell dayCell(int day, Date start, HolidayLabels labels) const;
  [[nodiscard]] std::string secondaryText(const char* pattern, Date date) const;
  [[nodiscard]] CalendarModel moved(CalendarUnit unit, int amount) const;
};

}  // namespace Hilalor
