#pragma once

#include <memory>
#include <optional>

#include "datetime/Date.hpp"
#include "datetime/DateComponents.hpp"
#include "datetime/Moment.hpp"
#include "datetime/Region.hpp"
#include "datetime/TimeZone.hpp"

namespace Hilalor {

class CalendarEngine;

enum class CalendarIdentifier { gregorian, islamicUmmAlQura };

enum class CalendarUnit { day, month, year };

/// A calendar in a time zone: turns instants into fields and back.
///
/// Umm al-Qura months of 1451 to 1500 AH are those published, all others those of ICU's table;
/// they can be told to begin on other days.
///
/// Without a zone of its own a calendar works in the machine's current zone, asked anew at every
/// call. A value; copies are independent. Main thread.
class Calendar {
 public:
  /// A calendar in the machine's current time zone.
  explicit Calendar(CalendarIdentifier identifier);
  Calendar(CalendarIdentifier identifier, TimeZone zone);
  Calendar(const Calendar& other);
  Calendar& operator=(const Calendar& other);
  Calendar(Calendar&&) noexcept;
  Calendar& operator=(Calendar&&) noexcept;
  ~Calendar();

  /// The Gregorian calendar with the week of the user's region (first weekday, weekend), in the
  /// machine's time zone as it was at the moment.
  [[nodiscard]] static Calendar ofUser(const Moment& moment);

  /// The calendar with all Hijri months beginning so many days earlier (later where negative), as
  /// where people saw the new moon on another night: every day's Hijri date is so many days ahead.
  /// A Gregorian calendar is as it was.
  [[nodiscard]] Calendar withHijriAhead(int days) const;

  [[nodiscard]] CalendarIdentifier identifier() const { return identifier_; }
  [[nodiscard]] int hijriDaysAhead() const { return hijriDaysAhead_; }

  /// The zone the calendar works in now.
  [[nodiscard]] TimeZone timeZone() const;

  /// All six fields of the instant; a fraction of a second is dropped (floor). For an instant that
  /// is not finite every field is absent.
  [[nodiscard]] DateComponents components(Date date) const;

  /// 1 is Sunday, 7 is Saturday.
  [[nodiscard]] int weekday(Date date) const;

  /// The instant of the fields. Absent year, month and day count as 1, absent time fields as 0, and
  /// fields out of range carry over leniently. A local time that a change of the clock skips is the
  /// instant as much later; one that occurs twice is the first of the two. No result when the
  /// calendar cannot represent the fields.
  [[nodiscard]] std::optional<Date> date(const DateComponents& components) const;

  /// The instant that many units later, or earlier for a negative amount. Larger units carry, a day
  /// that the target month lacks becomes its last day (31 January plus a month is the end of
  /// February), the local time of day stays. No result outside the calendar's range.
  [[nodiscard]] std::optional<Date> adding(CalendarUnit unit, int amount, Date date) const;

  /// Days of the month that holds the instant, 28 to 31; no result for an instant that is not
  /// finite.
  [[nodiscard]] std::optional<int> daysInMonth(Date date) const;

  /// The day's place in its year, 1 to 366; no result for an instant that is not finite.
  [[nodiscard]] std::optional<int> ordinalDay(Date date) const;

  /// The first instant of the local day: midnight, or the moment the clock was set forward to on a
  /// day that has no midnight.
  [[nodiscard]] Date startOfDay(Date date) const;

  [[nodiscard]] bool isSameMonth(Date one, Date other) const;

  /// The region's first day of the week, 1 (Sunday) to 7. Sunday where no region was given.
  [[nodiscard]] int firstWeekday() const;

  /// Whether the instant lies in the region's weekend.
  [[nodiscard]] bool isWeekend(Date date) const;

 private:
  Calendar(CalendarIdentifier identifier, std::optional<TimeZone> zone, Region region);
  // Null when ICU's data are missing.
  [[nodiscard]] CalendarEngine* engine() const;

  CalendarIdentifier identifier_;
  std::optional<TimeZone> zone_;
  Region region_;
  int hijriDaysAhead_ = 0;
  // Made on first use: most calendars of a screen are asked little.
  mutable std::unique_ptr<CalendarEngine> engine_;
};

}  // namespace Hilalor
