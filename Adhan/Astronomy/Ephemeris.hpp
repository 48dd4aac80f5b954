#pragma once

#include <array>
#include <optional>

#include "Adhan/Astronomy/SolarDay.hpp"

namespace Adhan {

/// The sun of the dates last asked for, kept so that neighbouring dates and further places need not
/// compute it again. What it gives never depends on what was asked before, to the last bit.
///
/// A value of less than a kilobyte; it allocates nothing. Hand one to `PrayerTimes::make` for many
/// days in a row at one place or for many places on one date. Each thread needs one of its own.
class Ephemeris {
 public:
  /// The day that begins at this Julian day, 0h UTC. The reference holds until the next call.
  [[nodiscard]] const SolarDay& at(double julianDay);

 private:
  // A day takes three positions and its neighbours share two of them.
  [[nodiscard]] SolarCoordinates position(double julianDay) const;

  struct Entry {
    double julianDay;
    SolarDay sun;
  };
  // Today, tomorrow, and one more to either side. Days in a row take different entries.
  std::array<std::optional<Entry>, 4> entries_;
};

}  // namespace Adhan
