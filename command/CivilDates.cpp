#include "command/CivilDates.hpp"

#include <algorithm>
#include <charconv>
#include <cstdlib>

namespace Hilalor {
namespace {

constexpr std::size_t kLengthOfMonth = 7;  // "2026-11"
constexpr std::size_t kLengthOfDay = 10;   // "2026-11-16"

std::optional<int> number(std::string_view digits) {
  int value = 0;
  const char* end = digits.data() + digits.size();
  const auto read = std::from_chars(digits.data(), end, value);
  if (digits.front() == '-' || read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return value;
}

std::string padded(int number, std::size_t width) {
  const auto digits = std::to_string(number);
  return std::string(width - std::min(width, digits.size()), '0') + digits;
}

}  // namespace

std::optional<CivilDate> civilDate(std::string_view text, CalendarIdentifier calendar) {
  const bool hasDay = text.size() == kLengthOfDay;
  if (!hasDay && text.size() != kLengthOfMonth) return std::nullopt;
  if (text[4] != '-' || (hasDay && text[7] != '-')) return std::nullopt;
  const auto year = number(text.substr(0, 4));
  const auto month = number(text.substr(5, 2));
  const auto day = hasDay ? number(text.substr(8)) : std::nullopt;
  if (!year || !month || hasDay != day.has_value()) return std::nullopt;
  return CivilDate{calendar, *year, *month, day};
}

std::optional<Date> noonOf(const CivilDate& date, const TimeZone& zone, int hijriDaysAhead) {
  const auto calendar = Calendar(date.calendar, zone).withHijriAhead(hijriDaysAhead);
  const auto noon = calendar.date({date.year, date.month, date.day.value_or(1), 12, 0, 0});
  if (!noon) return std::nullopt;
  // Calendars carry what a month lacks into the next one.
  auto found = civilDateOf(*noon, calendar);
  if (!date.day) found.day.reset();
  return found == date ? noon : std::nullopt;
}

CivilDate civilDateOf(Date date, const Calendar& calendar) {
  const auto fields = calendar.components(date);
  return {calendar.identifier(), fields.year.value_or(0), fields.month.value_or(1), fields.day};
}

std::string isoText(const CivilDate& date) {
  return padded(date.year, 4) + "-" + padded(date.month, 2) + "-" + padded(date.day.value_or(1), 2);
}

std::string isoText(Date date, const TimeZone& zone) {
  const Calendar gregorian(CalendarIdentifier::gregorian, zone);
  const auto local = gregorian.components(date);
  const auto day = civilDateOf(date, gregorian);
  const int offset = zone.secondsFromUTC(date);
  const int minutes = std::abs(offset) / 60;
  const auto clock = [](int larger, int smaller) {
    return padded(larger, 2) + ":" + padded(smaller, 2);
  };
  return isoText(day) + "T" + clock(local.hour.value_or(0), local.minute.value_or(0)) + ":" +
         padded(local.second.value_or(0), 2) + (offset < 0 ? "-" : "+") +
         clock(minutes / 60, minutes % 60);
}

}  // namespace Hilalor
