#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "datetime/Calendar.hpp"
#include "datetime/Date.hpp"
#include "datetime/TimeZone.hpp"

namespace Hilalor {

struct FormatEngine;

/// Writes instants as English text ("en_US"), in a calendar and its time zone.
///
/// A formatter over a calendar without a zone of its own writes in the machine's current zone,
/// asked anew at every call. Making one costs about 90 microseconds, formatting one or two. Main
/// thread.
class DateFormatter {
 public:
  /// Gregorian, in the machine's current zone. The pattern is one of Unicode's TR 35: "d MMM" gives
  /// "6 Apr", "yyyy-MM-dd HH:mm" gives "2026-11-16 05:12".
  explicit DateFormatter(std::string_view pattern);
  /// In a Hijri calendar numbers of weeks and of days of the year (w, W, F, D) can be off by one
  /// after 1450 AH.
  DateFormatter(std::string_view pattern, const Calendar& calendar);

  /// The long date style, "March 15, 2025": Gregorian, in the machine's current zone.
  [[nodiscard]] static DateFormatter longStyle();

  DateFormatter(DateFormatter&&) noexcept;
  DateFormatter& operator=(DateFormatter&&) noexcept;
  ~DateFormatter();

  /// The instant as UTF-8 text; empty for an instant that is not finite.
  [[nodiscard]] std::string string(Date date) const;

 private:
  explicit DateFormatter(std::unique_ptr<FormatEngine> engine);

  std::unique_ptr<FormatEngine> engine_;
};

}  // namespace Hilalor
