#pragma once

#include <optional>

#include "Adhan/Models/CalculationMethod.hpp"
#include "Adhan/Models/Coordinates.hpp"
#include "Adhan/Models/HighLatitudeRule.hpp"
#include "Adhan/Models/Madhab.hpp"
#include "Adhan/Models/PrayerAdjustments.hpp"
#include "Adhan/Models/Rounding.hpp"
#include "Adhan/Models/Shafaq.hpp"

namespace Adhan {

/// The shares of the night, from 0 to 1, after which fajr at the earliest begins before sunrise and
/// isha at the latest after sunset.
struct NightPortions {
  double fajr = 0;
  double isha = 0;

  friend bool operator==(const NightPortions&, const NightPortions&) = default;
};

/// Everything that a calculation of prayer times can be told besides the place and the day.
/// `params` gives those of a published method.
struct CalculationParameters {
  CalculationParameters(double fajrDegrees, double ishaDegrees)
      : fajrAngle(fajrDegrees), ishaAngle(ishaDegrees) {}

  CalculationMethod method = CalculationMethod::other;
  double fajrAngle;                    ///< Degrees of the sun below the horizon.
  std::optional<double> maghribAngle;  ///< Degrees below the horizon; absent for sunset itself.
  double ishaAngle;                    ///< Degrees below the horizon; not read with an interval.
  int ishaInterval = 0;                ///< Minutes after sunset; by the angle if not above 0.
  Madhab madhab = Madhab::shafi;
  std::optional<HighLatitudeRule> highLatitudeRule;  ///< Absent for the place's recommended one.
  PrayerAdjustments adjustments;                     ///< The user's own.
  Rounding rounding = Rounding::nearest;
  Shafaq shafaq = Shafaq::general;
  PrayerAdjustments methodAdjustments;  ///< The method's; both are added.

  [[nodiscard]] NightPortions nightPortions(const Coordinates& place) const;

  friend bool operator==(const CalculationParameters&, const CalculationParameters&) = default;
};

}  // namespace Adhan
