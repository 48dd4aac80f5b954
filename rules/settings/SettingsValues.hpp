#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

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

/// The strings that stand for an enumeration's cases in the store, in the order of declaration.
template <typename Enumeration>
inline constexpr std::array<std::string_view, 0> kRawValues{};

template <>
inline constexpr std::array<std::string_view, 3> kRawValues<MenuBarStyle>{"emoji", "date",
                                                                          "nextPrayer"};
template <>
inline constexpr std::array<std::string_view, 2> kRawValues<PrimaryCalendar>{"gregorian", "hijri"};

template <>
inline constexpr std::array<std::string_view, 2> kRawValues<LocationMode>{"automatic", "manual"};

template <>
inline constexpr std::array<std::string_view, 12> kRawValues<PrayerCalculationMethod>{
    "ummAlQura",    "muslimWorldLeague",
    "egyptian",     "karachi",
    "dubai",        "moonsightingCommittee",
    "northAmerica", "kuwait",
    "qatar",        "singapore",
    "tehran",       "turkey"};

template <>
inline constexpr std::array<std::string_view, 2> kRawValues<AsrCalculation>{"shafi", "hanafi"};

template <>
inline constexpr std::array<std::string_view, 3> kRawValues<AthanVoice>{"none", "vemran", "tolsar"};

template <>
inline constexpr std::array<std::string_view, 3> kRawValues<AppTheme>{"system", "light", "dark"};

/// Every case in the order of declaration.
template <typename Enumeration>
[[nodiscard]] constexpr auto allCases() {
  std::array<Enumeration, kRawValues<Enumeration>.size()> cases{};
  for (std::size_t index = 0; index < cases.size(); ++index) {
    cases[index] = static_cast<Enumeration>(index);
  }
  return cases;
}

/// The string that stands for the case in the store.
template <typename Enumeration>
[[nodiscard]] constexpr std::string_view rawValue(Enumeration value) {
  return kRawValues<Enumeration>[static_cast<std::size_t>(value)];
}

/// The case of exactly that string, letter case included; none for any other.
template <typename Enumeration>
[[nodiscard]] constexpr std::optional<Enumeration> fromRawValue(std::string_view string) {
  for (const auto value : allCases<Enumeration>()) {
    if (rawValue(value) == string) return value;
  }
  return std::nullopt;
}

}  // namespace Hilalor
