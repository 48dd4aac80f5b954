#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Adhan/Models/CalculationMethod.hpp"
#include "Adhan/Models/CalculationParameters.hpp"
#include "Adhan/Models/Coordinates.hpp"
#include "datetime/Date.hpp"
#include "datetime/TimeZone.hpp"
#include "platform/LocationService.hpp"
#include "rules/calendar/Uuid.hpp"
#include "rules/prayer/ListedTime.hpp"
#include "rules/settings/AppSettings.hpp"
#include "rules/settings/SettingsValues.hpp"

namespace Hilalor {

/// One row of a day's schedule.
struct PrayerTime {
  Uuid id;           ///< Fresh for every row of every calculation.
  std::string name;  ///< "Fajr", "Sunrise", ..., "Last Third".
  Date time;
  bool isSunrise = false;
  bool isSunnah = false;
};

/// The engine's method of that preference.
[[nodiscard]] Adhan::CalculationMethod adhanMethod(PrayerCalculationMethod method);

/// The place in the engine's own type.
[[nodiscard]] constexpr Adhan::Coordinates adhanCoordinates(const LocationCoordinate& place) {
  return {place.latitude, place.longitude};
}

/// What the settings screen calls the method: "Umm Al-Qura, Makkah".
[[nodiscard]] std::string_view displayName(PrayerCalculationMethod method);

/// From the user's preferences to the engine and back to named rows, for a date as the engine has
/// it. What the program shows and calls is chosen from the engine's days by `PrayerCourse`.
namespace PrayerTimesCalculator {

/// The engine's parameters of the method and the school of Asr that the user chose, with the
/// user's own minutes.
[[nodiscard]] Adhan::CalculationParameters parameters(const AppSettings& settings);

/// The engine's schedule of the date that the instant has at a place: Fajr, Sunrise, Dhuhr, Asr,
/// Maghrib, Isha and, if wanted, Middle of Night and Last Third, in this order whatever their
/// times. Latitude and longitude are degrees, north and east positive. Empty where the sun gives no
/// such day (polar day or night); without the last two rows where it gives none the next day. Near
/// the date line the times can be those of a day beside it (see Adhan::PrayerTimes::make).
[[nodiscard]] std::vector<PrayerTime> calculate(Date date, double latitude, double longitude,
                                                const TimeZone& timeZone, bool showSunnah,
                                                const AppSettings& settings);

}  // namespace PrayerTimesCalculator

}  // namespace Hilalor
