#pragma once

#include <string>

#include "datetime/Moment.hpp"
#include "platform/ItemTitle.hpp"
#include "rules/prayer/PrayerCourse.hpp"

namespace Hilalor {

/// The title of the item in the bar, for the user's style, at the moment: the calendar glyph
/// alone, today's date, or the countdown.
[[nodiscard]] ItemTitle menuBarTitle(const PrayerCourse& course, const Moment& moment);

/// The date at the moment in that calendar and the machine's time zone, "6 Apr"; compact, the
/// page 6. A Hijri date may be ahead (see Calendar::withHijriAhead).
[[nodiscard]] ItemTitle dateTitle(PrimaryCalendar calendar, const Moment& moment,
                                  int hijriDaysAhead = 0);

/// The countdown to the next of Fajr, Dhuhr, Asr, Maghrib and Isha: after Isha it is the next day's
/// Fajr, after midnight still Isha where that is to come. The mosque glyph alone where the sun
/// gives neither today nor tomorrow a prayer to come.
[[nodiscard]] ItemTitle nextPrayerTitle(const PrayerCourse& course, Date now);

/// The prayer and the time left until it, in whole minutes rounded down: "Maghrib 45m", "Dhuhr 2h
/// 5m". Compact, "Mag" over "45m", "Dhu" over "2h" and "05"; from ten hours on without minutes.
[[nodiscard]] ItemTitle countdown(const CalledPrayer& prayer, Date now);

/// The mosque glyph, a space and the title of the announcement in progress; compact, the beginning
/// of that over "now".
[[nodiscard]] ItemTitle athanTitle(const std::string& activeAthanTitle);

}  // namespace Hilalor
