#include "Adhan/Extensions/UTCCalendar.hpp"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace Adhan {
namespace {

constexpr std::int64_t floorDivided(std::int64_t value, std::int64_t divisor) {
  return value / divisor - (value % divisor < 0 ? 1 : 0);
}

// Years are counted from March, so that the leap day is the last of its year, and in eras of 400
// years, after which the calendar repeats (H. Hinnant, "chrono-Compatible Low-Level Date
// Algorithms").
constexpr std::int64_t kDaysPerEra = 146097;
constexpr std::int64_t kDaysFromMarch0To1970 = 719468;

struct CivilDay {
  std::int64_t year = 1970;
  std::int64_t month = 1;  // 1 to 12
  std::int64_t day = 1;    // 1 to 31
};

// Days from 1970-01-01 to the first of the month.
constexpr std::int64_t daysToMonth(std::int64_t year, std::int64_t month) {
  const std::int64_t marchYear = month <= 2 ? year - 1 : year;
  const std::int64_t era = floorDivided(marchYear, 400);
  const std::int64_t yearOfEra = marchYear - era * 400;
  const std::int64_t marchMonth = (month + 9) % 12;
  const std::int64_t dayOfYear = (153 * marchMonth + 2) / 5;
  const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
  return era * kDaysPerEra + dayOfEra - kDaysFromMarch0To1970;
}

constexpr CivilDay dayAfter1970(std::int64_t days) {
  const std::int64_t shifted = days + kDaysFromMarch0To1970;
  const std::int64_t era = floorDivided(shifted, kDaysPerEra);
  const std::int64_t dayOfEra = shifted - era * kDaysPerEra;
  const std::int64_t yearOfEra =
      (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const std::int64_t marchMonth = (5 * dayOfYear + 2) / 153;
  const std::int64_t month = marchMonth < 10 ? marchMonth + 3 : marchMonth - 9;
  const std::int64_t year = yearOfEra + era * 400 + (month <= 2 ? 1 : 0);
  return {year, month, dayOfYear - (153 * marchMonth + 2) / 5 + 1};
}

std::optional<std::int64_t> wholeSeconds(Date date) {
  const double seconds = std::floor(date.secondsSince1970);
  if (!(std::abs(seconds) <= UTCCalendar::kFarthestSecond)) return std::nullopt;
  return static_cast<std::int64_t>(seconds);
}

Hilalor::TimeZone zoneOrStop(std::optional<Hilalor::TimeZone> utc) {
  if (!utc) {
    std::fputs("Unable to instantiate UTC TimeZone.\n", stderr);
    std::abort();
  }
  return *std::move(utc);
}

}  // namespace

UTCCalendar::UTCCalendar(std::optional<Hilalor::TimeZone> utc)
    : zone_(zoneOrStop(std::move(utc))) {}

DateComponents UTCCalendar::components(Date date) const {
  const auto seconds = wholeSeconds(date);
  if (!seconds) return {};
  const std::int64_t days = floorDivided(*seconds, kSecondsPerDay);
  const auto ofDay = static_cast<int>(*seconds - days * kSecondsPerDay);
  const CivilDay day = dayAfter1970(days);
  return {static_cast<int>(day.year),
          static_cast<int>(day.month),
          static_cast<int>(day.day),
          ofDay / 3600,
          ofDay / 60 % 60,
          ofDay % 60};
}

std::optional<Date> UTCCalendar::date(const DateComponents& components) const {
  // 64 bits hold every sum of 32-bit fields.
  const std::int64_t months = std::int64_t{components.month.value_or(1)} - 1;
  const std::int64_t year = components.year.value_or(1) + floorDivided(months, 12);
  const std::int64_t month = months - floorDivided(months, 12) * 12 + 1;
  const std::int64_t days = daysToMonth(year, month) + components.day.value_or(1) - 1;
  const std::int64_t seconds =
      days * kSecondsPerDay + std::int64_t{components.hour.value_or(0)} * 3600 +
      std::int64_t{components.minute.value_or(0)} * 60 + components.second.value_or(0);
  const Date date{static_cast<double>(seconds)};
  return std::abs(date.secondsSince1970) <= kFarthestSecond ? std::optional(date) : std::nullopt;
}

std::optional<Date> UTCCalendar::midnightAfter(const DateComponents& components) const {
  const auto start = date(components);
  const auto seconds = start ? wholeSeconds(*start + std::chrono::days(1)) : std::nullopt;
  if (!seconds) return std::nullopt;
  return Date{static_cast<double>(floorDivided(*seconds, kSecondsPerDay) * kSecondsPerDay)};
}

std::optional<DateComponents> UTCCalendar::dayAfter(const DateComponents& components) const {
  const auto start = date(components);
  const auto next = start ? inRange(*start + std::chrono::days(1)) : std::nullopt;
  if (!next) return std::nullopt;
  DateComponents day = this->components(*next);
  day.hour = day.minute = day.second = std::nullopt;
  return day;
}

std::optional<int> UTCCalendar::ordinalDay(Date date) const {
  const auto seconds = wholeSeconds(date);
  if (!seconds) return std::nullopt;
  const std::int64_t days = floorDivided(*seconds, kSecondsPerDay);
  return static_cast<int>(days - daysToMonth(dayAfter1970(days).year, 1)) + 1;
}

const UTCCalendar& gregorianUTC() {
  static const UTCCalendar calendar(Hilalor::TimeZone::named("UTC"));
  return calendar;
}

}  // namespace Adhan
