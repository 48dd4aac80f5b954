#pragma once

#include <string>
#include <string_view>

#include "datetime/Calendar.hpp"
#include "datetime/Date.hpp"

namespace Hilalor {

/// Writes instants as English text ("en_US"), in a calendar and its time zone.
///
/// A formatter over a calendar without a zone of its own writes in the machine's current zone,
/// asked anew at every call. Main thread.
class DateFormatter {
 public:
  /// Gregorian, in the machine's current zone. The pattern is of Unicode's TR 35, of its letters y,
  /// M, d, E, a, h, H, m and s: "d MMM" gives "6 Apr", "yyyy-MM-dd HH:mm" gives "2026-11-16 05:12".
  explicit DateFormatter(std::string_view pattern);
  DateFormatter(std::string_view pattern, const Calendar& calendar);

  /// The long date style, "March 15, 2025": Gregorian, in the machine's current zone.
  [[nodiscard]] static DateFormatter longStyle();

  /// The instant as UTF-8 text; empty for an instant that the calendar does not have.
  [[nodiscard]] std::string string(Date date) const;

 private:
  struct Written;
  [[nodiscard]] std::string field(char letter, std::size_t count, const Written& moment) const;

  std::string pattern_;
  Calendar calendar_;
};

}  // namespace Hilalor
