#pragma once

#include <array>
#include <optional>
#include <vector>

#include "Adhan/Models/Prayer.hpp"
#include "Adhan/Models/PrayerAdjustments.hpp"
#include "Adhan/SunnahTimes.hpp"
#include "datetime/Date.hpp"

namespace Hilalor {

/// The six times of a day, by `Adhan::Prayer`.
using SixTimes = std::array<Date, Adhan::kCaseCount<Adhan::Prayer>>;

/// One of the five prayers of some day. Sunrise is none of them.
struct CalledPrayer {
  Adhan::Prayer prayer = Adhan::Prayer::fajr;
  Date time;
  friend bool operator==(const CalledPrayer&, const CalledPrayer&) = default;
};

/// The times of one day at a place: the dawn before its noon, the noon, and what follows until the
/// night, which may lie after midnight.
///
/// A time that the formulas put out of the day's order is left out. So is Asr where the sun hardly
/// rises and its time comes out before noon or after sunset (at either end of the polar night), and
/// in the shortest nights of the far north, where a method's minutes carry one time past the next,
/// sunrise before Fajr and Isha before Maghrib; and a Fajr before the Maghrib of the evening before
/// (minutes back from a sunrise that follows that Maghrib sooner, in the far south). What the user
/// adds to the times leaves none out.
class PrayerDay {
 public:
  /// Takes the times of the day, of the day before and of the day after (none where the sun gives
  /// no such day). All have the user's minutes in them; `minutes` says how many.
  PrayerDay(const SixTimes& times, const std::optional<SixTimes>& before,
            const std::optional<SixTimes>& after, const Adhan::PrayerAdjustments& minutes = {});

  /// The time, unless it is left out. Dhuhr never is.
  [[nodiscard]] std::optional<Date> time(Adhan::Prayer prayer) const;

  [[nodiscard]] Date dhuhr() const { return dhuhr_; }

  /// The prayers that are called, as they follow each other: not those after the next day's Fajr,
  /// whose night that Fajr ends (Isha by a fixed interval, where nights are shorter).
  [[nodiscard]] std::vector<CalledPrayer> called() const;

  /// Whether that time of the day no longer lies ahead: it has come, or the next day's Fajr has.
  [[nodiscard]] bool isPast(Date time, Date now) const;

  /// Of the night from Maghrib to the next day's Fajr; none without one of them.
  [[nodiscard]] std::optional<Adhan::SunnahTimes> sunnahTimes() const;

 private:
  [[nodiscard]] std::optional<Date>& at(Adhan::Prayer prayer);

  std::array<std::optional<Date>, Adhan::kCaseCount<Adhan::Prayer>> times_;
  Date dhuhr_;
  std::optional<Date> nextFajr_;
};

}  // namespace Hilalor
