#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Adhan/Models/CalculationMethod.hpp"
#include "Adhan/PrayerTimes.hpp"
#include "app/AppSettings.hpp"
#include "app/SettingsValues.hpp"
#include "app/Uuid.hpp"
#include "datetime/Date.hpp"
#include "datetime/DateComponents.hpp"
#include "datetime/TimeZone.hpp"

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

/// What the settings screen calls the method: "Umm Al-Qura, Makkah".
[[nodiscard]] std::string_view displayName(PrayerCalculationMethod method);

/// The day's prayer times as the user sees and hears them.
namespace PrayerTimesCalculator {

/// The schedule of the civil day that the instant lies in at a place: Fajr, Sunrise, Dhuhr, Asr,
/// Maghrib, Isha and, if wanted, Middle of Night and Last Third, in this order whatever their
/// times. Latitude and longitude are degrees, north and east positive. The method and the school of
/// Asr are the settings'. Empty where the sun gives no such day (polar day or night); without the
/// last two rows where it gives none the next day. Near the date line the times can be those of the
/// day after (see Adhan::PrayerTimes::make).
[[nodiscard]] std::vector<PrayerTime> calculate(
    Date date, double latitude, double longitude, const TimeZone& timeZone, bool showSunnah,
    const AppSettings& settings = AppSettings::shared());

/// The engine's times that such a schedule shows, of a civil day by its Gregorian year, month and
/// day, which may be out of range and carry over: day 0 is the last of the month before.
[[nodiscard]] std::optional<Adhan::PrayerTimes> times(const DateComponents& day, double latitude,
                                                      double longitude,
                                                      const AppSettings& settings);

/// The rows of those times, the prayers in the engine's order first.
[[nodiscard]] std::vector<PrayerTime> rows(const Adhan::PrayerTimes& times, bool showSunnah);

}  // namespace PrayerTimesCalculator

}  // namespace Hilalor
