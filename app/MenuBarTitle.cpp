#include "app/MenuBarTitle.hpp"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "app/PrayerTimesCalculator.hpp"
#include "datetime/Calendar.hpp"
#include "datetime/DateFormatter.hpp"

namespace Hilalor {
namespace {

constexpr const char* kCalendarGlyph = "\U0001F4C5";
constexpr const char* kMosqueGlyph = "\U0001F54C";

std::string todaysDate(PrimaryCalendar primaryCalendar, Date now) {
  const auto identifier = primaryCalendar == PrimaryCalendar::hijri
                              ? CalendarIdentifier::islamicUmmAlQura
                              : CalendarIdentifier::gregorian;
  return DateFormatter("d MMM", Calendar(identifier)).string(now);
}

// The first prayer after `now` in the schedule of the day that `day` lies in.
std::optional<PrayerTime> nextSalah(const AppSettings& settings, const EffectiveLocation& location,
                                    Date day, Date now) {
  const auto schedule = PrayerTimesCalculator::calculate(day, location.latitude, location.longitude,
                                                         location.timeZone, false, settings);
  const auto next = std::find_if(schedule.begin(), schedule.end(), [&](const PrayerTime& row) {
    return !row.isSunrise && !row.isSunnah && row.time > now;
  });
  return next != schedule.end() ? std::optional(*next) : std::nullopt;
}

std::string countdown(const PrayerTime& prayer, Date now) {
  const auto secondsLeft = std::max(Seconds(0), prayer.time - now);
  const auto minutes = std::chrono::duration_cast<std::chrono::minutes>(secondsLeft).count();
  if (minutes < 60) return prayer.name + " " + std::to_string(minutes) + "m";
  return prayer.name + " " + std::to_string(minutes / 60) + "h " + std::to_string(minutes % 60) +
         "m";
}

}  // namespace

std::string menuBarTitle(const AppSettings& settings, Date now) {
  switch (settings.menuBarStyle.value()) {
    case MenuBarStyle::emoji:
      return kCalendarGlyph;
    case MenuBarStyle::nextPrayer:
      return nextPrayerTitle(settings, now);
    case MenuBarStyle::date:
      break;
  }
  return todaysDate(settings.primaryCalendar, now);
}

std::string nextPrayerTitle(const AppSettings& settings, Date now) {
  const auto location = settings.effectiveLocation();
  auto next = nextSalah(settings, location, now, now);
  if (!next) {
    const Calendar gregorian(CalendarIdentifier::gregorian);
    const Date tomorrow = gregorian.adding(CalendarUnit::day, 1, now).value_or(now);
    next = nextSalah(settings, location, tomorrow, now);
  }
  return next ? countdown(*next, now) : kMosqueGlyph;
}

std::string athanTitle(const std::string& activeAthanTitle) {
  return std::string(kMosqueGlyph) + " " + activeAthanTitle;
}

}  // namespace Hilalor
