#include "datetime/DateFormatter.hpp"

#include <unicode/dtfmtsym.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace Hilalor {
namespace {

/// A name and its abbreviation by the count of letters that ask for it: four ask for the whole.
using Names = std::array<std::vector<std::string>, 2>;
constexpr std::size_t kWholeName = 4;

struct CalendarNames {
  Names months;
  Names weekdays;  // Those of ICU, which begin with none for 0.
};

std::vector<std::string> texts(const icu::UnicodeString* names, std::int32_t count) {
  std::vector<std::string> result(static_cast<std::size_t>(count));
  for (std::size_t i = 0; i < result.size(); ++i)
    names[i].toUTF8String(result[i]);
  return result;
}

// ICU's formats would bring all it knows of numbers and currencies along, for names alone.
CalendarNames readNames(CalendarIdentifier calendar) {
  using Symbols = icu::DateFormatSymbols;
  const bool isHijri = calendar == CalendarIdentifier::islamicUmmAlQura;
  UErrorCode status = U_ZERO_ERROR;
  const Symbols symbols("en_US", isHijri ? "islamic-umalqura" : "gregorian", status);
  if (U_FAILURE(status)) return {};
  CalendarNames names;
  for (const auto width : {Symbols::ABBREVIATED, Symbols::WIDE}) {
    const std::size_t place = width == Symbols::WIDE ? 1 : 0;
    std::int32_t count = 0;
    const auto* months = symbols.getMonths(count, Symbols::FORMAT, width);
    names.months[place] = texts(months, count);
    const auto* weekdays = symbols.getWeekdays(count, Symbols::FORMAT, width);
    names.weekdays[place] = texts(weekdays, count);
  }
  return names;
}

const CalendarNames& namesOf(CalendarIdentifier calendar) {
  static const auto kGregorian = readNames(CalendarIdentifier::gregorian);
  if (calendar == CalendarIdentifier::gregorian) return kGregorian;
  static const auto kHijri = readNames(CalendarIdentifier::islamicUmmAlQura);
  return kHijri;
}

std::string nameAt(const Names& names, std::size_t letters, int number) {
  const auto& ofWidth = names[letters < kWholeName ? 0 : 1];
  const auto place = static_cast<std::size_t>(number);
  return place < ofWidth.size() ? ofWidth[place] : std::string();
}

std::string padded(int number, std::size_t digits) {
  auto text = std::to_string(std::abs(number));
  if (text.size() < digits) text.insert(0, digits - text.size(), '0');
  return number < 0 ? "-" + text : text;
}

bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

}  // namespace

struct DateFormatter::Written {
  DateComponents fields;
  int weekday;
};

DateFormatter::DateFormatter(std::string_view pattern)
    : DateFormatter(pattern, Calendar(CalendarIdentifier::gregorian)) {}

DateFormatter::DateFormatter(std::string_view pattern, const Calendar& calendar)
    : pattern_(pattern), calendar_(calendar) {}

DateFormatter DateFormatter::longStyle() {
  return DateFormatter("MMMM d, y");
}

std::string DateFormatter::string(Date date) const {
  const Written moment{calendar_.components(date), calendar_.weekday(date)};
  if (!moment.fields.day) return {};
  std::string text;
  bool isQuoted = false;
  for (std::size_t at = 0; at < pattern_.size();) {
    const char letter = pattern_[at];
    const auto end = std::min(pattern_.find_first_not_of(letter, at), pattern_.size());
    if (letter == '\'') {
      isQuoted = !isQuoted;
      ++at;
    } else if (isQuoted || !isLetter(letter)) {
      text += letter;
      ++at;
    } else {
      text += field(letter, end - at, moment);
      at = end;
    }
  }
  return text;
}

std::string DateFormatter::field(char letter, std::size_t count, const Written& moment) const {
  const auto& fields = moment.fields;
  const int hour = fields.hour.value_or(0);
  switch (letter) {
    case 'y': {
      // There is no year 0: the one before 1 is 1 BC.
      const int year = fields.year.value_or(1);
      const bool isEra = calendar_.identifier() == CalendarIdentifier::gregorian && year < 1;
      return padded(isEra ? 1 - year : year, count);
    }
    case 'M': {
      const int month = fields.month.value_or(1);
      if (count <= 2) return padded(month, count);
      return nameAt(namesOf(calendar_.identifier()).months, count, month - 1);
    }
    case 'd':
      return padded(fields.day.value_or(1), count);
    case 'E':
      return nameAt(namesOf(calendar_.identifier()).weekdays, count, moment.weekday);
    case 'a':
      return hour < 12 ? "AM" : "PM";
    case 'h':
      return padded((hour + 11) % 12 + 1, count);
    case 'H':
      return padded(hour, count);
    case 'm':
      return padded(fields.minute.value_or(0), count);
    case 's':
      return padded(fields.second.value_or(0), count);
    default:
      return {};
  }
}

}  // namespace Hilalor
