#pragma once

#include <optional>
#include <string_view>

#include "rules/settings/SettingsValues.hpp"

namespace Hilalor {

/// The method by which the mosques of a country mostly go; none where we have no source for one.
/// Countries are named as the data of places name them, "Germany".
///
/// Sources. Where a method is a country's own, the authority that its name tells: Umm al-Qura
/// University in Makkah, the Egyptian General Authority of Survey, the University of Islamic
/// Sciences in Karachi, the General Authority of Islamic Affairs of the Emirates, the Islamic
/// Society of North America, the ministries of Kuwait and Qatar, the councils of Singapore and
/// Malaysia, the Institute of Geophysics of the University of Tehran, Turkey's Diyanet. For others
/// the regions in the table of conventions of M. Ahmed, The Determination of Salat Times; not those
/// that it gives to a method in parts, nor those that have since published times of their own.
[[nodiscard]] std::optional<PrayerCalculationMethod> usualMethod(std::string_view country);

}  // namespace Hilalor
