#include <string>

#include "datetime/DateFormatter.hpp"
#include "rules/calendar/CalendarModel.hpp"
#include "rules/calendar/HolidaysProvider.hpp"
#include "tests/fakes/SystemTimeZone.hpp"
#include "tests/golden/Kinds.hpp"

namespace Golden {
namespace {

using namespace Hilalor;

// Noon of "2025-03-15", local.
Date noonOf(const Json& text) {
  const auto day = text.get<std::string>();
  DateComponents fields;
  fields.year = std::stoi(day.substr(0, 4));
  fields.month = std::stoi(day.substr(5, 2));
  fields.day = std::stoi(day.substr(8, 2));
  fields.hour = 12;
  return Calendar(CalendarIdentifier::gregorian).date(fields).value();
}

std::string dayOf(Date date) {
  return DateFormatter("yyyy-MM-dd").string(date);
}

Date dayOfHijri(int year, int month, int day) {
  DateComponents fields;
  fields.year = year;
  fields.month = month;
  fields.day = day;
  return Calendar(CalendarIdentifier::islamicUmmAlQura).date(fields).value();
}

// Which column of a row the calendar follows: the library's months but for the years from 1451 to
// 1500 AH, which are as published.
bool isPublished(const Json& row) {
  const int year = row.at("year").get<int>();
  return year >= 1451 && year <= 1500;
}

// What the page says, in the form of a row.
Json rowOf(const MonthPage& page) {
  Json row = {{"monthName", page.monthName},
              {"secondaryMonthHeader", page.secondaryMonthHeader},
              {"secondaryDays", Json::array()},
              {"secondaryMonthNames", Json::object()},
              {"holidayLabels", Json::object()}};
  for (const auto& cell : page.cells) {
    if (!cell) continue;
    row["secondaryDays"].push_back(cell->secondaryDay);
    const auto day = std::to_string(cell->day);
    if (cell->day == 1) row["firstDay"] = dayOf(cell->date);
    if (cell->isNewSecondary) row["secondaryMonthNames"][day] = cell->secondaryMonthName;
    if (!cell->holidayLabel.empty()) row["holidayLabels"][day] = cell->holidayLabel;
  }
  return row;
}

}  // namespace

void checkMonth(const Json& row, Checks& checks) {
  const SystemTimeZone zone(row.at("systemTimeZone").get<std::string>());
  const auto calendar = fromRawValue<PrimaryCalendar>(row.at("primaryCalendar").get<std::string>());
  const CalendarModel model(noonOf(row.at("displayDate")), calendar.value());
  auto actual = rowOf(model.page(Moment::at({}), HolidayLabels::shown));
  for (const auto& day : model.days(row.at("firstWeekday").get<int>()))
    actual["days"].push_back(day ? Json(*day) : Json());
  for (const auto& [name, value] : actual.items())
    checks.equal(name, row.at(name), value);
}

void checkHijriMonth(const Json& row, Checks& checks) {
  const SystemTimeZone zone("Asia/Riyadh");
  const int year = row.at("year").get<int>();
  const int month = row.at("month").get<int>();
  const Calendar hijri(CalendarIdentifier::islamicUmmAlQura);
  const auto* start = isPublished(row) ? "first" : "icuFirst";
  const auto* length = isPublished(row) ? "length" : "icuLength";
  const auto first = dayOfHijri(year, month, 1);
  const auto fields = hijri.components(noonOf(row.at(start)));
  checks.equal(start, row.at(start), dayOf(first));
  checks.equal(length, row.at(length), hijri.daysInMonth(first).value());
  checks.equal("fields of the first day", Json({year, month, 1}),
               Json({fields.year.value(), fields.month.value(), fields.day.value()}));
}

void checkEid(const Json& row, Checks& checks) {
  const SystemTimeZone zone("Asia/Riyadh");
  const auto name = row.at("name").get<std::string>();
  const auto* day = isPublished(row) ? "published" : "icu";
  const auto holidays = HolidaysProvider::holidays(noonOf(row.at(day)));
  checks.equal("name", name, holidays.empty() ? "" : holidays.front().name);
  const bool isFitr = name == "Eid Al-Fitr";
  checks.equal(day, row.at(day),
               dayOf(dayOfHijri(row.at("year").get<int>(), isFitr ? 10 : 12, isFitr ? 1 : 10)));
}

}  // namespace Golden
