#include "rules/calendar/HolidaysProvider.hpp"

#include "datetime/Calendar.hpp"

namespace Hilalor::HolidaysProvider {
namespace {

bool isDay(const DateComponents& fields, int month, int day) {
  return fields.month == month && fields.day == day;
}

}  // namespace

std::vector<Holiday> holidays(Date date) {
  static const Calendar hijri(CalendarIdentifier::islamicUmmAlQura);
  static const Calendar gregorian(CalendarIdentifier::gregorian);
  return holidays(hijri.components(date), gregorian.components(date));
}

std::vector<Holiday> holidays(const DateComponents& hijri, const DateComponents& gregorian) {
  std::vector<Holiday> found;
  if (isDay(hijri, 10, 1)) found.push_back({"Eid Al-Fitr", HolidayColor::teal});
  if (isDay(hijri, 12, 10)) found.push_back({"Eid Al-Adha", HolidayColor::teal});
  if (isDay(gregorian, 9, 23)) found.push_back({"Saudi National Day", HolidayColor::green});
  if (isDay(gregorian, 2, 22)) found.push_back({"Saudi Founding Day", HolidayColor::green});
  return found;
}

std::string label(const std::vector<Holiday>& holidays) {
  std::string text;
  for (const auto& holiday : holidays) {
    if (!text.empty()) text += " · ";
    text += holiday.name;
  }
  return text;
}

}  // namespace Hilalor::HolidaysProvider
