#pragma once

namespace Adhan {

/// Whole minutes added to each time, negative for earlier.
struct PrayerAdjustments {
  int fajr = 0;
  int sunrise = 0;
  int dhuhr = 0;
  int asr = 0;
  int maghrib = 0;
  int isha = 0;

  friend bool operator==(const PrayerAdjustments&, const PrayerAdjustments&) = default;
};

}  // namespace Adhan
