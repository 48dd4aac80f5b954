#pragma once

#include <array>
#include <cstddef>

#include "Adhan/PrayerTimes.hpp"

namespace Bench {

/// Days and places one after another, so that no branch is always the same: a leap year at places
/// from the equator to 60 degrees.
struct Workload {
  static constexpr std::array<Adhan::Coordinates, 5> kPlaces{{{24.6877, 46.7219},
                                                              {1.3521, 103.8198},
                                                              {40.7128, -74.006},
                                                              {-33.8688, 151.2093},
                                                              {59.9139, 10.7522}}};

  [[nodiscard]] const Adhan::Coordinates& place() const { return kPlaces[step % kPlaces.size()]; }
  [[nodiscard]] int year() const { return 2028; }
  [[nodiscard]] int month() const { return static_cast<int>(step / 28 % 12) + 1; }
  [[nodiscard]] int day() const { return static_cast<int>(step % 28) + 1; }
  [[nodiscard]] Adhan::DateComponents date() const {
    return {year(), month(), day(), std::nullopt, std::nullopt, std::nullopt};
  }
  void advance() { ++step; }

  std::size_t step = 0;
};

}  // namespace Bench
