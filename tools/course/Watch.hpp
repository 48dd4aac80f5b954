#pragma once

#include "rules/settings/SettingsValues.hpp"
#include "tools/course/HardPlaces.hpp"

namespace Course {

/// What one user of the program lives through.
struct Life {
  Home home;
  char machineZone[40];
  Hilalor::PrayerCalculationMethod method;
  double from = 0;  ///< Seconds since 1970 UTC.
  double until = 0;
  bool everyTick = false;  ///< Else only those around events and borders of days, few between.
  long listEvery = 1;      ///< After so many ticks the lists are looked at, which are dear.
  bool saysAll = false;    ///< Prints every fault.
};

/// What was counted. Plain numbers: it is filled in another process.
struct Tally {
  long ticks = 0;
  long announced = 0;
  long missed = 0;
  long doubled = 0;
  long extra = 0;  ///< Announced without a true prayer.
  long outOfOrder = 0;
  long wrongTitles = 0;  ///< Ticks whose title told another prayer or minute than came then.
  long wrongMarks = 0;   ///< Ticks whose lists marked or dimmed other rows than the title's.
  long marksSeen = 0;
  // Prayers that the program leaves out where it may: see TruePrayer::Doubt.
  long leftAtEdge = 0;
  long leftAsr = 0;
  long leftInShortNight = 0;
  // Seconds between called and true beyond the rounding, with the noon sun higher than ten degrees.
  double farthest = 0;         ///< Of all but Asr and the next.
  double farthestGrazing = 0;  ///< Fajr and Isha of nights that hardly reach their angle.
  double farthestAsr = 0;
  double processorSeconds = 0;
  char firstFault[160] = "";
};

/// Runs the program's loop over that life and counts.
[[nodiscard]] Tally watch(const Life& life);

}  // namespace Course
