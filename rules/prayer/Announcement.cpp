#include "rules/prayer/Announcement.hpp"

#include <algorithm>
#include <cmath>

namespace Hilalor {
namespace {

constexpr Seconds kShortestLoop{1.0};

constexpr Seconds kMinute{60.0};

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

Date minuteOf(Date date) {
  return {std::floor(date.secondsSince1970 / 60) * 60};
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

void Announced::add(const CalledPrayer& prayer, Date now) {
  prayers_[count_++ % prayers_.size()] = prayer;
  latest_ = now;
}

bool Announced::contains(const CalledPrayer& prayer) const {
  const auto end = prayers_.begin() + std::min(count_, prayers_.size());
  return std::any_of(prayers_.begin(), end, [&](const CalledPrayer& announced) {
    return announced.prayer == prayer.prayer && minuteOf(announced.time) == minuteOf(prayer.time);
  });
}

Date Announced::firstMinute(Date now) const {
  const bool wasJustNow = count_ > 0 && latest_ <= now && now - latest_ <= kMinute;
  return minuteOf(wasJustNow ? latest_ : now);
}

std::optional<CalledPrayer> duePrayer(const PrayerCourse& course, const Announced& announced,
                                      Date now) {
  const auto prayers = course.between(announced.firstMinute(now), minuteOf(now) + kMinute);
  const auto due = std::find_if(prayers.begin(), prayers.end(),
                                [&](const auto& prayer) { return !announced.contains(prayer); });
  return due != prayers.end() ? std::optional(*due) : std::nullopt;
}

}  // namespace Hilalor
