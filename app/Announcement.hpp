#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/AppSettings.hpp"
#include "app/PrayerTimesCalculator.hpp"
#include "app/SettingsValues.hpp"
#include "datetime/Date.hpp"
#include "datetime/DateFormatter.hpp"

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

/// A prayer whose minute has come.
struct Announcement {
  PrayerTime prayer;
  std::string key;  ///< Name and minute, "Fajr-2026-11-16 05:12": the same all through the minute.
  AnnouncementElements elements;
};

/// The recording of the voice; none for no voice.
[[nodiscard]] std::optional<std::string_view> athanFile(AthanVoice voice);

/// The elements as the settings are now.
[[nodiscard]] AnnouncementElements announcementElements(const AppSettings& settings);

/// The rows that can fall due at the instant: the schedule of its civil day at the place and, after
/// it, rows of the days beside it within a minute of the instant. Isha can come after midnight, and
/// near the date line the schedule of a civil day can lie on the next one as a whole. Where the day
/// itself has that prayer within twelve hours, the neighbour's is the same one told differently and
/// is left out.
[[nodiscard]] std::vector<PrayerTime> rowsAround(Date now, const AppSettings& settings);

/// The announcement that is due at the instant: of the first of the five prayers in the schedule
/// that falls in the same minute as the instant, both written by `minuteFormatter`. None when there
/// is no such prayer, or its key is the last announced one.
[[nodiscard]] std::optional<Announcement> dueAnnouncement(const AppSettings& settings,
                                                          const std::vector<PrayerTime>& schedule,
                                                          Date now, std::string_view lastKey,
                                                          const DateFormatter& minuteFormatter);

}  // namespace Hilalor
