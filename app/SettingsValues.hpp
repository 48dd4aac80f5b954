#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <utility>

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

/// The cases of an enumeration in their order, each with the string that stands for it in the
/// store.
template <typename Enumeration>
struct StoredStrings;

template <>
struct StoredStrings<MenuBarStyle> {
  static constexpr std::array<std::pair<MenuBarStyle, std::string_view>, 3> kCases{
      {{MenuBarStyle::emoji, "emoji"},
       {MenuBarStyle::date, "date"},
       {MenuBarStyle::nextPrayer, "nextPrayer"}}};
};

template <>
struct StoredStrings<PrimaryCalendar> {
  static constexpr std::array<std::pair<PrimaryCalendar, std::string_view>, 2> kCases{
      {{PrimaryCalendar::gregorian, "gregorian"}, {PrimaryCalendar::hijri, "hijri"}}};
};

template <>
struct StoredStrings<LocationMode> {
  static constexpr std::array<std::pair<LocationMode, std::string_view>, 2> kCases{
      {{LocationMode::automatic, "automatic"}, {LocationMode::manual, "manual"}}};
};

template <>
struct StoredStrings<PrayerCalculationMethod> {
  using Method = PrayerCalculationMethod;
  static constexpr std::array<std::pair<Method, std::string_view>, 12> kCases{
      {{Method::ummAlQura, "ummAlQura"},
       {Method::muslimWorldLeague, "muslimWorldLeague"},
       {Method::egyptian, "egyptian"},
       {Method::karachi, "karachi"},
       {Method::dubai, "dubai"},
       {Method::moonsightingCommittee, "moonsightingCommittee"},
       {Method::northAmerica, "northAmerica"},
       {Method::kuwait, "kuwait"},
       {Method::qatar, "qatar"},
       {Method::singapore, "singapore"},
       {Method::tehran, "tehran"},
       {Method::turkey, "turkey"}}};
};

template <>
struct StoredStrings<AsrCalculation> {
  static constexpr std::array<std::pair<AsrCalculation, std::string_view>, 2> kCases{
      {{AsrCalculation::shafi, "shafi"}, {AsrCalculation::hanafi, "hanafi"}}};
};

template <>
struct StoredStrings<AthanVoice> {
  static constexpr std::array<std::pair<AthanVoice, std::string_view>, 3> kCases{
      {{AthanVoice::none, "none"}, {AthanVoice::vemran, "vemran"}, {AthanVoice::tolsar, "tolsar"}}};
};

template <>
struct StoredStrings<AppTheme> {
  static constexpr std::array<std::pair<AppTheme, std::string_view>, 3> kCases{
      {{AppTheme::system, "system"}, {AppTheme::light, "light"}, {AppTheme::dark, "dark"}}};
};

/// The string that stands for the case in the store.
template <typename Enumeration>
[[nodiscard]] constexpr std::string_view rawValue(Enumeration value) {
  return StoredStrings<Enumeration>::kCases[static_cast<std::size_t>(value)].second;
}

/// The case of exactly that string, letter case included; none for any other.
template <typename Enumeration>
[[nodiscard]] constexpr std::optional<Enumeration> fromRawValue(std::string_view string) {
  for (const auto& [value, raw] : StoredStrings<Enumeration>::kCases) {
    if (raw == string) return value;
  }
  return std::nullopt;
}

}  // namespace Hilalor
