#pragma once

#include <cmath>
#include <cstdint>
#include <optional>

#include "datetime/Date.hpp"
#include "datetime/DateComponents.hpp"
#include "datetime/TimeZone.hpp"

namespace Adhan {

using Hilalor::Date;
using Hilalor::DateComponents;
using Hilalor::Seconds;

/// The Gregorian calendar in UTC, in exact integer arithmetic. Proleptic: the Gregorian rule holds
/// for every year, also before 1582. Far quicker than a general calendar.
///
/// Its range is the instants whose whole seconds a double holds exactly, 2^53 seconds either side
/// of 1970 (285 million years). Beyond it, and for NaN, there is no result.
class UTCCalendar {
 public:
  static constexpr std::int64_t kSecondsPerDay = 86400;
  static constexpr double kFarthestSecond = 9007199254740992;  ///< 2^53.

  /// Stops the program with "Unable to instantiate UTC TimeZone." when the machine has no UTC.
  explicit UTCCalendar(std::optional<Hilalor::TimeZone> utc);

  [[nodiscard]] const Hilalor::TimeZone& timeZone() const { return zone_; }

  /// All six fields; a fraction of a second is dropped (floor). Every field is absent out of range.
  [[nodiscard]] DateComponents components(Date date) const;

  /// The instant of the fields. Absent year, month and day count as 1, absent time fields as 0.
  /// Fields out of their usual range carry over: hour 25 is 1 o'clock next day, second -1 the last
  /// second of the minute before.
  [[nodiscard]] std::optional<Date> date(const DateComponents& components) const;

  /// Year, month and day of the day after that of the fields.
  [[nodiscard]] std::optional<DateComponents> dayAfter(const DateComponents& components) const;

  /// The midnight that ends the day of the fields.
  [[nodiscard]] std::optional<Date> midnightAfter(const DateComponents& components) const;

  /// The date itself if it lies within the range.
  [[nodiscard]] static std::optional<Date> inRange(Date date) {
    const bool inside = std::abs(date.secondsSince1970) <= kFarthestSecond;
    return inside ? std::optional(date) : std::nullopt;
  }

  /// The day's place in its year, 1 to 366.
  [[nodiscard]] std::optional<int> ordinalDay(Date date) const;

 private:
  Hilalor::TimeZone zone_;
};

/// The calendar of every conversion in the engine, made on first use and kept.
[[nodiscard]] const UTCCalendar& gregorianUTC();

}  // namespace Adhan
