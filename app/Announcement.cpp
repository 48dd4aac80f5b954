#include "app/Announcement.hpp"

#include <algorithm>

namespace Hilalor {
namespace {

constexpr Seconds kShortestLoop{1.0};

std::optional<BeepElement> beepElement(const AppSettings& settings) {
  if (!settings.beepSoundEnabled) return std::nullopt;
  BeepElement beep{settings.selectedBeepSound, std::nullopt};
  if (settings.beepLoopEnabled) {
    beep.loopLength =
        std::max(kShortestLoop, Seconds(static_cast<double>(settings.beepLoopSeconds.value())));
  }
  return beep;
}

std::optional<AthanElement> athanElement(const AppSettings& settings) {
  if (!settings.athanEnabled) return std::nullopt;
  const auto file = athanFile(settings.athanVoice);
  if (!file) return std::nullopt;
  return AthanElement{*file, settings.athanVoice, settings.playDuaAfterAthan};
}

bool isAnnounced(const PrayerTime& row) {
  return !row.isSunrise && !row.isSunnah;
}

}  // namespace

std::optional<std::string_view> athanFile(AthanVoice voice) {
  switch (voice) {
    case AthanVoice::none:
      return std::nullopt;
    case AthanVoice::vemran:
      return "athan";
    case AthanVoice::tolsar:
      return "athan2";
  }
  return std::nullopt;
}

AnnouncementElements announcementElements(const AppSettings& settings) {
  return {settings.notificationBannerEnabled, beepElement(settings), athanElement(settings)};
}

std::optional<Announcement> dueAnnouncement(const AppSettings& settings,
                                            const std::vector<PrayerTime>& schedule, Date now,
                                            std::string_view lastKey,
                                            const DateFormatter& minuteFormatter) {
  const auto minute = minuteFormatter.string(now);
  const auto due = std::find_if(schedule.begin(), schedule.end(), [&](const PrayerTime& row) {
    return isAnnounced(row) && minuteFormatter.string(row.time) == minute;
  });
  if (due == schedule.end()) return std::nullopt;
  auto key = due->name + "-" + minute;
  if (key == lastKey) return std::nullopt;
  return Announcement{*due, std::move(key), announcementElements(settings)};
}

}  // namespace Hilalor
