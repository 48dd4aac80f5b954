#pragma once

#include <string>

#include "app/AppSettings.hpp"
#include "datetime/Date.hpp"

namespace Hilalor {

/// The text of the item in the bar, for the user's style, at that instant: the calendar glyph
/// alone, today's date in the primary calendar and the machine's time zone, or the countdown.
[[nodiscard]] std::string menuBarTitle(const AppSettings& settings, Date now);

/// The next of Fajr, Dhuhr, Asr, Maghrib and Isha at the effective location and the time left until
/// it, in whole minutes rounded down: "Maghrib 45m", "Dhuhr 2h 5m". After Isha it is tomorrow's
/// Fajr. The mosque glyph alone where neither today nor tomorrow has a prayer to come.
[[nodiscard]] std::string nextPrayerTitle(const AppSettings& settings, Date now);

/// The mosque glyph, a space and the title of the announcement in progress.
[[nodiscard]] std::string athanTitle(const std::string& activeAthanTitle);

}  // namespace Hilalor
