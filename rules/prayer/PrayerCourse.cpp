#include "rules/prayer/PrayerCourse.hpp"

#include <cmath>

#include "rules/prayer/PrayerTimesCalculator.hpp"

namespace Hilalor {
namespace {

/// A prayer lies on the solar day of an instant or this many beside it, clocks of all zones
/// counted.
constexpr std::int64_t kDaysAside = 2;

double civilDay(Date instant, const TimeZone& zone) {
  return std::floor((instant.secondsSince1970 + zone.secondsFromUTC(instant)) / 86400);
}

}  // namespace

PrayerCourse::PrayerCourse(const AppSettings& settings) : settings_(settings) {}

SolarDays& PrayerCourse::days(const EffectiveLocation& place) const {
  const auto coordinates = adhanCoordinates(place);
  const auto parameters = PrayerTimesCalculator::parameters(settings_);
  if (!days_ || !days_->areOf(coordinates, parameters)) days_.emplace(coordinates, parameters);
  return *days_;
}

/// The days on which prayers between the instants can lie, in their order.
std::vector<PrayerDay> PrayerCourse::daysAround(const EffectiveLocation& place, Date from,
                                                Date until) const {
  std::vector<PrayerDay> result;
  auto& solar = days(place);
  const auto first = solar.dayOf(from);
  const auto last = solar.dayOf(until);
  if (!first || !last) return result;
  const auto minutes = PrayerTimesCalculator::parameters(settings_).adjustments;
  for (auto number = *first - kDaysAside; number <= *last + kDaysAside; ++number) {
    const auto times = solar.times(number);
    if (!times) continue;
    result.emplace_back(*times, solar.times(number - 1), solar.times(number + 1), minutes);
  }
  return result;
}

std::optional<PrayerDay> PrayerCourse::day(Date moment) const {
  const auto place = settings_.effectiveLocation();
  const auto wanted = civilDay(moment, place.timeZone);
  for (const auto& day : daysAround(place, moment, moment)) {
    if (civilDay(day.dhuhr(), place.timeZone) == wanted) return day;
  }
  return std::nullopt;
}

std::optional<CalledPrayer> PrayerCourse::next(Date now) const {
  const auto place = settings_.effectiveLocation();
  const auto tomorrow = civilDay(now, place.timeZone) + 1;
  for (const auto& day : daysAround(place, now, now)) {
    if (civilDay(day.dhuhr(), place.timeZone) > tomorrow) break;
    for (const auto& prayer : day.called()) {
      if (prayer.time > now) return prayer;
    }
  }
  return std::nullopt;
}

std::vector<CalledPrayer> PrayerCourse::between(Date from, Date until) const {
  std::vector<CalledPrayer> result;
  const auto place = settings_.effectiveLocation();
  for (const auto& day : daysAround(place, from, until)) {
    for (const auto& prayer : day.called()) {
      if (prayer.time >= from && prayer.time < until) result.push_back(prayer);
    }
  }
  return result;
}

bool PrayerCourse::hasBegun(Date moment, Date now) const {
  const auto zone = settings_.effectiveLocation().timeZone;
  return civilDay(moment, zone) <= civilDay(now, zone);
}

}  // namespace Hilalor
