#include "Adhan/Models/CalculationParameters.hpp"

namespace Adhan {

NightPortions CalculationParameters::nightPortions(const Coordinates& place) const {
  switch (highLatitudeRule.value_or(recommended(place))) {
    case HighLatitudeRule::middleOfTheNight:
      return {1.0 / 2, 1.0 / 2};
    case HighLatitudeRule::seventhOfTheNight:
      return {1.0 / 7, 1.0 / 7};
    case HighLatitudeRule::twilightAngle:
      break;
  }
  return {fajrAngle / 60, ishaAngle / 60};
}

}  // namespace Adhan
