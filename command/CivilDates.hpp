#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "datetime/Calendar.hpp"
#include "datetime/Date.hpp"
#include "datetime/TimeZone.hpp"

namespace Hilalor {

/// A day of some calendar as the user writes it; the month alone has no day.
struct CivilDate {
  CalendarIdentifier calendar = CalendarIdentifier::gregorian;
  int year = 0;
  int month = 1;
  std::optional<int> day;

  friend bool operator==(const CivilDate&, const CivilDate&) = default;
};

/// "2026-11-16" or, without its day, "2026-11"; none for anything else.
[[nodiscard]] std::optional<CivilDate> civilDate(std::string_view text,
                                                 CalendarIdentifier calendar);

/// Noon of that day in the zone, of the month's first where it names none. None where the calendar
/// has no such day. A Hijri calendar may be ahead (see Calendar::withHijriAhead).
[[nodiscard]] std::optional<Date> noonOf(const CivilDate& date, const TimeZone& zone,
                                         int hijriDaysAhead = 0);

/// The day that the instant lies in.
[[nodiscard]] CivilDate civilDateOf(Date date, const Calendar& calendar);

/// "2026-11-16".
[[nodiscard]] std::string isoText(const CivilDate& date);

/// The instant in the zone as RFC 3339 has it, in whole seconds: "2026-11-16T05:12:00+03:00".
[[nodiscard]] std::string isoText(Date date, const TimeZone& zone);

}  // namespace Hilalor
