#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "datetime/Date.hpp"
#include "rules/prayer/PrayerDay.hpp"
#include "rules/prayer/SolarDays.hpp"
#include "rules/settings/AppSettings.hpp"

namespace Hilalor {

/// The course of the prayers at the place of the settings, by their method. The list, its marks,
/// the title and the announcements ask it and nothing else, so that they agree at every instant.
///
/// A day of it has the times around one noon. The prayers follow each other by instants, whatever
/// the clocks of the place and the machine show: a day's Isha comes after midnight where it does,
/// and no longer counts once the next day's Fajr has come. See `PrayerDay` for times left out.
///
/// Days are kept until place or method change, so that asking at every tick costs little. Main
/// thread.
class PrayerCourse {
 public:
  explicit PrayerCourse(const AppSettings& settings);

  [[nodiscard]] const AppSettings& settings() const { return settings_; }

  /// The times of a civil day at the place: the day that holds the instant there. They are those
  /// around the noon that falls on that day, whichever date the sky's formulas have it under. None
  /// where the sun gives no day (polar day and night).
  [[nodiscard]] std::optional<PrayerDay> day(Date moment) const;

  /// The first prayer after the instant, of the civil days up to tomorrow at the place. None where
  /// the sun gives none.
  [[nodiscard]] std::optional<CalledPrayer> next(Date now) const;

  /// Those from one instant until before another, day by day in their order.
  [[nodiscard]] std::vector<CalledPrayer> between(Date from, Date until) const;

  /// Whether the civil day at the place that holds the moment is today or an earlier one.
  [[nodiscard]] bool hasBegun(Date moment, Date now) const;

 private:
  [[nodiscard]] SolarDays& days(const EffectiveLocation& place) const;
  [[nodiscard]] std::vector<PrayerDay> daysAround(const EffectiveLocation& place, Date from,
                                                  Date until) const;

  const AppSettings& settings_;
  mutable std::optional<SolarDays> days_;
};

}  // namespace Hilalor
