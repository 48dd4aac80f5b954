#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "app/AppSettings.hpp"
#include "app/PrayerTimesCalculator.hpp"
#include "datetime/Date.hpp"

namespace Hilalor {

/// One line of the prayer list, as it is written.
struct PrayerRow {
  std::string name;  ///< "Maghrib"
  std::string time;  ///< "05:12 PM"
  bool isActive = false;
  bool isPast = false;
  bool isSunnah = false;

  friend bool operator==(const PrayerRow&, const PrayerRow&) = default;
};

/// The prayer times of a day at the place that they are computed for, all in that place's time
/// zone.
struct PrayerList {
  std::string gregorianDate;  ///< "Monday, 16 November 2026"
  std::string hijriDate;      ///< "6 Jumada II 1448"
  std::string placeName;
  std::vector<PrayerRow> rows;  ///< Empty where the sun gives no such day.

  friend bool operator==(const PrayerList&, const PrayerList&) = default;
};

/// The list of the day that holds `displayDate`, as it is to be shown at the instant `now`.
[[nodiscard]] PrayerList prayerList(Date displayDate, Date now,
                                    const AppSettings& settings = AppSettings::shared());

/// The next prayer to come among the day's rows; never sunrise or a Sunnah time. None on any day
/// but the machine's today, and none after the last prayer.
[[nodiscard]] std::optional<std::size_t> activePrayerIndex(const std::vector<PrayerTime>& prayers,
                                                           Date displayDate, Date now);

}  // namespace Hilalor
