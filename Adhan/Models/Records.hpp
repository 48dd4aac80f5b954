#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Adhan/Models/CalculationParameters.hpp"

/// The models as records with named keys, JSON texts, for keeping and passing on. The keys are the
/// fields' names, the enumerations stand as their raw values.
namespace Adhan {

/// No result when a number is not finite, which JSON cannot hold.
[[nodiscard]] std::optional<std::string> jsonRecord(const Coordinates& coordinates);
[[nodiscard]] std::optional<std::string> jsonRecord(const PrayerAdjustments& adjustments);
/// "maghribAngle" and "highLatitudeRule" are written only when they are present.
[[nodiscard]] std::optional<std::string> jsonRecord(const CalculationParameters& parameters);

/// No result when the text is no JSON record, a required key is missing, a value has the wrong type
/// or does not fit, or a raw value is unknown. Keys not listed are passed over.
[[nodiscard]] std::optional<Coordinates> coordinatesFrom(std::string_view jsonRecord);
[[nodiscard]] std::optional<PrayerAdjustments> prayerAdjustmentsFrom(std::string_view jsonRecord);
/// "maghribAngle" and "highLatitudeRule" may be missing or null; all other keys are required.
[[nodiscard]] std::optional<CalculationParameters> calculationParametersFrom(
    std::string_view jsonRecord);

}  // namespace Adhan
