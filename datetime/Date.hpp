#pragma once

#include <chrono>
#include <compare>
#include <iosfwd>

namespace Hilalor {

/// A span of time in seconds with fractions; every std::chrono duration converts to it.
using Seconds = std::chrono::duration<double>;

/// An absolute instant, independent of calendars and time zones.
struct Date {
  /// Seconds since 1970-01-01T00:00:00Z without leap seconds, negative before; fractions matter.
  double secondsSince1970 = 0;

  friend auto operator<=>(const Date&, const Date&) = default;

  friend Date operator+(Date date, Seconds span) { return {date.secondsSince1970 + span.count()}; }
  friend Date operator-(Date date, Seconds span) { return {date.secondsSince1970 - span.count()}; }
  friend Seconds operator-(Date later, Date earlier) {
    return Seconds(later.secondsSince1970 - earlier.secondsSince1970);
  }
};

/// The instant in UTC, as "2026-11-16 05:12:00 UTC", for test failures.
std::ostream& operator<<(std::ostream& out, Date date);

}  // namespace Hilalor
