#pragma once

#include <string>

#include "datetime/DateFormatter.hpp"
#include "rules/calendar/CalendarModel.hpp"

namespace Hilalor {

enum class SecondaryCalendar { shown, hidden };

/// What the panel's hover line says of the day: the secondary month that begins on it, if that
/// calendar is shown, and its holidays, joined by a middle dot. Empty for most days.
[[nodiscard]] std::string hoverLabel(const DayCell& cell, SecondaryCalendar secondary);

/// Says days for a screen reader.
class DaySpeech {
 public:
  explicit DaySpeech(const Calendar& hijri) : hijri_("d MMMM yyyy", hijri) {}

  /// "Monday, 16 November 2026, 6 Jumada II 1448, today, Eid Al-Fitr, note: call home"; the note is
  /// empty where there is none.
  [[nodiscard]] std::string of(const DayCell& cell, const std::string& note) const;

 private:
  DateFormatter gregorian_{"EEEE, d MMMM yyyy"};
  DateFormatter hijri_;
};

}  // namespace Hilalor
