#include "Adhan/Extensions/CivilDay.hpp"

#include "Adhan/Astronomy/Astronomical.hpp"

namespace Adhan {
namespace {

// From the year 1 to 9999, where the Julian day of fields is a plain count of days.
bool isInCommonEra(Date date) {
  return date.secondsSince1970 >= -62'135'596'800 && date.secondsSince1970 < 253'402'300'800;
}

double julianDayOf(Date midnight) {
  constexpr double kOf1970 = 2440587.5;
  if (!isInCommonEra(midnight)) return Astronomical::julianDay(gregorianUTC().components(midnight));
  return kOf1970 + midnight.secondsSince1970 / UTCCalendar::kSecondsPerDay;
}

}  // namespace

std::optional<CivilDay> CivilDay::of(const DateComponents& date) {
  if (date.hour || date.minute || date.second) {
    DateComponents whole = date;
    whole.hour = whole.minute = whole.second = std::nullopt;
    const auto day = of(whole);
    const auto next = gregorianUTC().midnightAfter(date);
    if (!day || !next) return std::nullopt;
    return CivilDay{day->midnight, *next, day->julianDay};
  }
  const auto midnight = gregorianUTC().date(date);
  const auto next =
      midnight ? UTCCalendar::inRange(*midnight + std::chrono::days(1)) : std::nullopt;
  if (!next || !date.year) return std::nullopt;
  return CivilDay{*midnight, *next, Astronomical::julianDay(date)};
}

double CivilDay::nextJulianDay() const {
  return julianDayOf(nextMidnight);
}

bool CivilDay::isRegular() const {
  return isInCommonEra(midnight) && isInCommonEra(nextMidnight) &&
         nextMidnight - midnight == std::chrono::days(1) && julianDayOf(midnight) == julianDay;
}

}  // namespace Adhan
