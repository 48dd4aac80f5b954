#pragma once

#include <iosfwd>
#include <optional>

namespace Hilalor {

/// Fields of an instant in some calendar and time zone. A field that is not known is absent.
///
/// The fields are plain numbers: what they mean is up to the calendar that reads them, and a
/// calendar carries values outside the usual ranges into the larger fields (hour 25 is 1 o'clock
/// next day, second -1 the last second of the minute before).
struct DateComponents {
  std::optional<int> year;
  std::optional<int> month;  ///< 1 is the first month of the year.
  std::optional<int> day;    ///< 1 is the first day of the month.
  std::optional<int> hour;
  std::optional<int> minute;
  std::optional<int> second;

  friend bool operator==(const DateComponents&, const DateComponents&) = default;
};

/// The fields as "2026-11-16 05:12:00", a dash for each absent one.
std::ostream& operator<<(std::ostream& out, const DateComponents& components);

}  // namespace Hilalor
