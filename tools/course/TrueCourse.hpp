#pragma once

#include <vector>

#include "Adhan/Models/CalculationParameters.hpp"
#include "Adhan/Models/Prayer.hpp"
#include "tools/course/Sky.hpp"

namespace Course {

/// A prayer as the sky and the method's words give it, along continuous time: no dates, no days of
/// the engine.
struct TruePrayer {
  Adhan::Prayer prayer = Adhan::Prayer::fajr;
  double instant = 0;    ///< The method's minutes added, not rounded.
  double tolerance = 0;  ///< Seconds that the program's whole minute may lie aside.
  double noon = 0;       ///< Of its day.
  /// Why the program may have no such prayer. `edge`: the sun hardly rises or sets on the day or on
  /// the next. `lowSun`: Asr with the noon sun on the horizon. `shortNight`: Isha about when the
  /// next Fajr comes, or Maghrib moved past it by minutes, or its twilight hardly reached.
  enum class Doubt { none, edge, lowSun, shortNight } doubt = Doubt::none;
};

/// Those between two instants, day after day in the order of the day's prayers. What never is (Isha
/// after the next Fajr, prayers of days without a sunrise) is not among them.
[[nodiscard]] std::vector<TruePrayer> truePrayers(const Sky::Place& place,
                                                  const Adhan::CalculationParameters& parameters,
                                                  double from, double until);

}  // namespace Course
