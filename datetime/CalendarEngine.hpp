#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "datetime/Calendar.hpp"

namespace Hilalor {

/// The arithmetic of one calendar on local time, which counts in seconds since 1970-01-01 00:00 as
/// the clocks on the wall show it: the zones are not its matter (see TimeZone).
///
/// Local times reach 10^12 seconds to either side. That holds every calendar of people, and
/// milliseconds stay exact.
class CalendarEngine {
 public:
  static constexpr std::int64_t kFarthestSecond = 1'000'000'000'000;
  static constexpr std::int64_t kSecondsPerDay = 86400;

  /// With the week of the region; Hijri months begin so many days ahead of the table's. Null when
  /// ICU's data are missing.
  [[nodiscard]] static std::unique_ptr<CalendarEngine> make(CalendarIdentifier identifier,
                                                            const Region& region,
                                                            int hijriDaysAhead);
  CalendarEngine() = default;
  CalendarEngine(const CalendarEngine&) = delete;
  CalendarEngine& operator=(const CalendarEngine&) = delete;
  virtual ~CalendarEngine() = default;

  // As the functions of Calendar.
  [[nodiscard]] virtual DateComponents components(std::int64_t local) = 0;
  [[nodiscard]] virtual std::optional<std::int64_t> seconds(const DateComponents& fields) = 0;
  [[nodiscard]] virtual std::optional<std::int64_t> adding(CalendarUnit unit, int amount,
                                                           std::int64_t local) = 0;
  [[nodiscard]] virtual std::optional<int> daysInMonth(std::int64_t local) = 0;
  [[nodiscard]] virtual std::optional<int> ordinalDay(std::int64_t local) = 0;
  [[nodiscard]] virtual int firstWeekday() const = 0;
  [[nodiscard]] virtual bool isWeekend(std::int64_t local) const = 0;

  /// Seconds since local midnight, also where the clock skipped it.
  [[nodiscard]] static constexpr int secondOfDay(std::int64_t local) {
    return static_cast<int>((local % kSecondsPerDay + kSecondsPerDay) % kSecondsPerDay);
  }
  /// Days since 1970-01-01.
  [[nodiscard]] static constexpr std::int64_t dayOf(std::int64_t local) {
    return (local - secondOfDay(local)) / kSecondsPerDay;
  }
};

}  // namespace Hilalor
