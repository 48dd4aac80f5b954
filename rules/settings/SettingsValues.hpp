#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "Adhan/Models/RawValue.hpp"

namespace Hilalor {

/// What the item in the bar shows: a calendar glyph, today's date, or the time to the next prayer.
enum class MenuBarStyle { emoji, date, nextPrayer };

/// The calendar whose months the panel lays out; the other one stands beside it.
enum class PrimaryCalendar { gregorian, hijri };

/// Whether the place comes from the location service or from the user.
enum class LocationMode { automatic, manual };

/// The published ways of calculating prayer times that the settings offer, in their order.
enum class PrayerCalculationMethod {
  ummAlQura,
  muslimWorldLeague,
  egyptian,
  karachi,
  dubai,
  moonsightingCommittee,
  northAmerica,
  kuwait,
  qatar,
  singapore,
  tehran,
  turkey,
};

/// The juristic school for Asr: the shadow once or twice as long as what casts it.
enum class AsrCalculation { shafi, hanafi };

/// The athan recording; `none` is no recording.
enum class AthanVoice { none, vemran, tolsar };

/// Light or dark, or as the desktop is.
enum class AppTheme { system, light, dark };

/// Minutes by which the user may move each time of the day, either way.
inline constexpr std::int64_t kMostPrayerMinutes = 60;

/// Days by which the user may move the Hijri calendar, either way.
inline constexpr std::int64_t kMostHijriDays = 2;

/// How many minutes before a prayer a reminder may come; 0 is no reminder.
inline constexpr std::array<std::int64_t, 8> kReminderMinutes{0, 5, 10, 15, 20, 30, 45, 60};

[[nodiscard]] inline bool arePrayerMinutes(const std::int64_t& minutes) {
  return minutes >= -kMostPrayerMinutes && minutes <= kMostPrayerMinutes;
}

[[nodiscard]] inline bool areHijriDays(const std::int64_t& days) {
  return days >= -kMostHijriDays && days <= kMostHijriDays;
}

[[nodiscard]] inline bool areReminderMinutes(const std::int64_t& minutes) {
  return std::ranges::find(kReminderMinutes, minutes) != kReminderMinutes.end();
}

using Adhan::allCases;
using Adhan::fromRawValue;
using Adhan::rawValue;

}  // namespace Hilalor

// The strings that stand for the cases in the store.
namespace Adhan {

template <>
inline constexpr std::array<std::string_view, 3> kRawValues<Hilalor::MenuBarStyle>{"emoji", "date",
                                                                                   "nextPrayer"};
template <>
inline constexpr std::array<std::string_view, 2> kRawValues<Hilalor::PrimaryCalendar>{"gregorian",
                                                                                      "hijri"};

template <>
inline constexpr std::array<std::string_view, 2> kRawValues<Hilalor::LocationMode>{"automatic",
                                                                                   "manual"};

template <>
inline constexpr std::array<std::string_view, 12> kRawValues<Hilalor::PrayerCalculationMethod>{
    "ummAlQura",    "muslimWorldLeague",
    "egyptian",     "karachi",
    "dubai",        "moonsightingCommittee",
    "northAmerica", "kuwait",
    "qatar",        "singapore",
    "tehran",       "turkey"};

template <>
inline constexpr std::array<std::string_view, 2> kRawValues<Hilalor::AsrCalculation>{"shafi",
                                                                                     "hanafi"};

template <>
inline constexpr std::array<std::string_view, 3> kRawValues<Hilalor::AthanVoice>{"none", "vemran",
                                                                                 "tolsar"};

template <>
inline constexpr std::array<std::string_view, 3> kRawValues<Hilalor::AppTheme>{"system", "light",
                                                                               "dark"};

}  // namespace Adhan
