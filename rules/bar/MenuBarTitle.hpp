#pragma once

#include <string>

#include "datetime/Date.hpp"
#include "rules/prayer/PrayerCourse.hpp"

namespace Hilalor {

/// The text of the item in the bar, for the user's style, at that instant: the calendar glyph
/// alone, today's date in the primary calendar and the machine's time zone, or the countdown.
[[nodiscard]] std::string menuBarTitle(const PrayerCourse& course, Date now);

/// The countdown to the next of Fajr, Dhuhr, Asr, Maghrib and Isha: after Isha it is the next day's
/// Fajr, after midnight still Isha where that is to come. The mosque glyph alone where the sun
/// gives neither today nor tomorrow a prayer to come.
[[nodiscard]] std::string nextPrayerTitle(const PrayerCourse& course, Date now);

/// The prayer and the time left until it, in whole minutes rounded down: "Maghrib 45m", "Dhuhr 2h
/// 5m".
[[nodiscard]] std::string countdown(const CalledPrayer& prayer, Date now);

/// The mosque glyph, a space and the title of the announcement in progress.
[[nodiscard]] std::string athanTitle(const std::string& activeAthanTitle);

}  // namespace Hilalor
