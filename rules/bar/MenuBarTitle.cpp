#include "rules/bar/MenuBarTitle.hpp"

#include <algorithm>

#include "datetime/Calendar.hpp"
#include "datetime/DateFormatter.hpp"
#include "rules/prayer/PrayerTimesCalculator.hpp"

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

}  // namespace

std::string menuBarTitle(const PrayerCourse& course, Date now) {
  const auto& settings = course.settings();
  switch (settings.menuBarStyle.value()) {
    case MenuBarStyle::emoji:
      return kCalendarGlyph;
    case MenuBarStyle::nextPrayer:
      return nextPrayerTitle(course, now);
    case MenuBarStyle::date:
      break;
  }
  return todaysDate(settings.primaryCalendar, now);
}

std::string nextPrayerTitle(const PrayerCourse& course, Date now) {
  const auto next = course.next(now);
  return next ? countdown(*next, now) : kMosqueGlyph;
}

std::string countdown(const CalledPrayer& prayer, Date now) {
  const auto secondsLeft = std::max(Seconds(0), prayer.time - now);
  const auto minutes = std::chrono::duration_cast<std::chrono::minutes>(secondsLeft).count();
  const auto name = std::string(displayName(prayer.prayer));
  if (minutes < 60) return name + " " + std::to_string(minutes) + "m";
  return name + " " + std::to_string(minutes / 60) + "h " + std::to_string(minutes % 60) + "m";
}

std::string athanTitle(const std::string& activeAthanTitle) {
  return std::string(kMosqueGlyph) + " " + activeAthanTitle;
}

}  // namespace Hilalor
