#pragma once

#include <string>

#include "Adhan/Models/CalculationParameters.hpp"
#include "datetime/DateComponents.hpp"
#include "rules/settings/AppSettings.hpp"
#include "tests/golden/Checks.hpp"

/// Readers of what the rows' inputs have in common. They throw on a row of another form.
namespace Golden {

/// The case whose name the text is.
template <typename E>
[[nodiscard]] E enumerator(const Json& text) {
  return Adhan::fromRawValue<E>(text.get<std::string>()).value();
}

/// "latitude" and "longitude".
[[nodiscard]] Adhan::Coordinates coordinates(const Json& row);

/// "year", "month", "day", and "hour" and "minute" where they are given.
[[nodiscard]] Hilalor::DateComponents date(const Json& row);

/// Every field of the parameters, under its name.
[[nodiscard]] Adhan::CalculationParameters parameters(const Json& row);

/// Gives the settings "calculationMethod" and "asrCalculation".
void chooseMethod(const Json& row, Hilalor::AppSettings& settings);

}  // namespace Golden
