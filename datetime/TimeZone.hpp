#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "datetime/Date.hpp"

namespace Hilalor {

class ZoneOffsets;

/// A time zone of the IANA database with its rules, past and future. Cheap to copy. Main thread.
///
/// The rules are the machine's own (/usr/share/zoneinfo, or the folder that TZDIR names), which its
/// updates keep current; ICU's older copy answers only for identifiers that the machine does not
/// have. They are read when a zone is first asked for, and again as `rereadChangedRules` says; a
/// value keeps those it was given with.
class TimeZone {
 public:
  /// The zone of that identifier ("Asia/Riyadh"); none when no database knows it.
  [[nodiscard]] static std::optional<TimeZone> named(std::string_view identifier);

  /// The zone the machine is set to now: that of the variable TZ where it is set, else that of
  /// /etc/localtime, else UTC. Asked again at every call, so a change of the machine's zone is seen
  /// by the next one. TZ is read as the C library does: a zone's name, the path of its file or a
  /// rule ("EST5EDT,M3.2.0,M11.1.0"), with or without a colon before it; UTC if it is none of them.
  /// A zone by rule has an identifier that `named` does not know.
  [[nodiscard]] static TimeZone current();

  /// Reads the rules again of the zones whose files have changed since. A look at each zone in use
  /// costs about a microsecond: to be called now and then.
  static void rereadChangedRules();

  [[nodiscard]] const std::string& identifier() const;

  /// Local time minus UTC at the instant, in seconds; daylight saving included. 0 for an instant
  /// that is not finite.
  [[nodiscard]] int secondsFromUTC(Date date) const;

  /// What a local time that the clock skipped stands for: as much later as it lies in the gap, or
  /// the first instant after the gap.
  enum class Skipped { asMuchLater, firstAfter };

  /// The instant, in whole seconds since 1970 UTC, at which local clocks show that many seconds
  /// since 1970-01-01 00:00 local time. Of a local time that occurs twice, the first.
  [[nodiscard]] std::int64_t utcSeconds(std::int64_t localSeconds, Skipped skipped) const;

  /// Two zones are equal when their identifiers are.
  friend bool operator==(const TimeZone& one, const TimeZone& other) {
    return one.identifier() == other.identifier();
  }

 private:
  explicit TimeZone(std::shared_ptr<const ZoneOffsets> offsets);

  std::shared_ptr<const ZoneOffsets> offsets_;
};

/// The identifier.
std::ostream& operator<<(std::ostream& out, const TimeZone& zone);

}  // namespace Hilalor
