#pragma once

#include <string_view>

#include "Adhan/Models/RawValue.hpp"

namespace Adhan {

struct CalculationParameters;

/// The published ways of an authority to set the times.
enum class CalculationMethod {
  muslimWorldLeague,
  egyptian,
  karachi,
  ummAlQura,
  dubai,
  moonsightingCommittee,  ///< Twilight goes by the season at every latitude.
  northAmerica,
  kuwait,
  qatar,
  singapore,
  tehran,
  turkey,
  other,  ///< Any other parameters.
};

template <>
inline constexpr std::array<std::string_view, 13> kRawValues<CalculationMethod>{
    "muslimWorldLeague",
    "egyptian",
    "karachi",
    "ummAlQura",
    "dubai",
    "moonsightingCommittee",
    "northAmerica",
    "kuwait",
    "qatar",
    "singapore",
    "tehran",
    "turkey",
    "other"};

/// The parameters the method publishes, with the shafi asr and no adjustments of the user's.
[[nodiscard]] CalculationParameters params(CalculationMethod method);

}  // namespace Adhan
