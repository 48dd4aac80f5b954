#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace Hilalor {

/// A yearly rule for daylight saving, as POSIX writes it in the variable TZ and as zone files end
/// with it for the years after their last change: "EET-2EEST,M4.5.5/0,M10.5.4/24".
class ZoneRule {
 public:
  /// The rule of the text; none when it is not well-formed.
  [[nodiscard]] static std::optional<ZoneRule> parsed(std::string_view text);

  /// Local time minus UTC in seconds at the instant, given in seconds since 1970 UTC.
  [[nodiscard]] int offsetAt(std::int64_t utcSeconds) const;

  /// A day of the year on which the clock changes.
  struct ChangeDay {
    enum class Kind {
      julian,       ///< "J60": day 1 to 365, 29 February never counted.
      zeroBased,    ///< "59": day 0 to 365, 29 February counted.
      weekOfMonth,  ///< "M4.5.5": month, week (5 is the last), weekday (0 is Sunday).
    };
    Kind kind = Kind::weekOfMonth;
    int day = 0;
    int month = 1;
    int week = 1;
    int weekday = 0;
    int localSeconds = 7200;  ///< Seconds after local midnight, -167 to 167 hours.
  };

 private:
  int standardOffset_ = 0;
  struct Saving {
    int offset = 0;
    ChangeDay start;
    ChangeDay end;
  };
  std::optional<Saving> saving_;
};

}  // namespace Hilalor
