#include "rules/calendar/DayTexts.hpp"

namespace Hilalor {

std::string hoverLabel(const DayCell& cell, SecondaryCalendar secondary) {
  std::string label;
  if (secondary == SecondaryCalendar::shown) label = cell.secondaryMonthName;
  if (!label.empty() && !cell.holidayLabel.empty()) label += " · ";
  return label + cell.holidayLabel;
}

std::string DaySpeech::of(const DayCell& cell, const std::string& note) const {
  std::string spoken = gregorian_.string(cell.date) + ", " + hijri_.string(cell.date);
  if (cell.isToday) spoken += ", today";
  if (!cell.holidayLabel.empty()) spoken += ", " + cell.holidayLabel;
  if (!note.empty()) spoken += ", note: " + note;
  return spoken;
}

}  // namespace Hilalor
