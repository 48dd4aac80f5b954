#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "datetime/Date.hpp"
#include "rules/prayer/PrayerCourse.hpp"
#include "rules/settings/AppSettings.hpp"
#include "rules/settings/SettingsValues.hpp"

namespace Hilalor {

/// The beep of an announcement.
struct BeepElement {
  std::string sound;                  ///< One of `AppSettings::systemSoundNames`.
  std::optional<Seconds> loopLength;  ///< At least a second; absent where it sounds once.
  friend bool operator==(const BeepElement&, const BeepElement&) = default;
};

/// The athan of an announcement.
struct AthanElement {
  std::string_view file;  ///< The recording's name, without extension.
  AthanVoice voice = AthanVoice::none;
  bool supplicationFollows = false;
  friend bool operator==(const AthanElement&, const AthanElement&) = default;
};

/// What the user wants to hear and see of an announcement, besides the title in the bar.
struct AnnouncementElements {
  bool banner = false;
  std::optional<BeepElement> beep;
  std::optional<AthanElement> athan;
  friend bool operator==(const AnnouncementElements&, const AnnouncementElements&) = default;
};

/// The recording of the voice; none for no voice.
[[nodiscard]] std::optional<std::string_view> athanFile(AthanVoice voice);

/// The elements as the settings are now.
[[nodiscard]] AnnouncementElements announcementElements(const AppSettings& settings);

/// The latest announcements, so that nothing is announced twice, whatever happens to the machine's
/// clock and zone. Kept in memory only.
class Announced {
 public:
  /// Remembers the prayer, which was announced at that instant.
  void add(const CalledPrayer& prayer, Date now);

  [[nodiscard]] bool contains(const CalledPrayer& prayer) const;

  /// The start of the first minute whose prayers can be due at the instant. It is the instant's own
  /// minute, or that of the latest announcement where that was a minute ago or less: another prayer
  /// may have waited for it.
  [[nodiscard]] Date firstMinute(Date now) const;

 private:
  std::array<CalledPrayer, 16> prayers_;  // Those of three days.
  std::size_t count_ = 0;
  Date latest_;
};

/// The prayer that is due at the instant: one in whose minute, from second 0 to 59, the instant
/// lies. Of two in one minute the second is due at the next look, which may be in the minute after.
/// None when there is no such prayer, or it was announced.
[[nodiscard]] std::optional<CalledPrayer> duePrayer(const PrayerCourse& course,
                                                    const Announced& announced, Date now);

}  // namespace Hilalor
