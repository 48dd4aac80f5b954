#include "app/Announcement.hpp"

#include <algorithm>
#include <cmath>

#include "datetime/Calendar.hpp"

namespace Hilalor {
namespace {

constexpr Seconds kShortestLoop{1.0};

/// A row further from the instant than this cannot share its minute.
constexpr Seconds kMinute{60.0};

/// Two times of one prayer nearer than this are of one day.
constexpr Seconds kHalfADay{12 * 3600.0};

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

bool areWithin(Seconds distance, Date one, Date other) {
  return Seconds(std::abs((one - other).count())) < distance;
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

std::vector<PrayerTime> rowsAround(Date now, const AppSettings& settings) {
  const auto place = settings.effectiveLocation();
  const auto today = Calendar(CalendarIdentifier::gregorian, place.timeZone).components(now);
  const auto scheduleOf = [&](int daysLater) {
    const DateComponents day{today.year, today.month, *today.day + daysLater, {}, {}, {}};
    return PrayerTimesCalculator::calculate(day, place.latitude, place.longitude, false, settings);
  };
  if (!today.day) return {};
  const auto own = scheduleOf(0);
  auto rows = own;
  for (const int daysLater : {-1, 1}) {
    for (const auto& row : scheduleOf(daysLater)) {
      const bool isOwn = std::any_of(own.begin(), own.end(), [&](const PrayerTime& other) {
        return other.name == row.name && areWithin(kHalfADay, other.time, row.time);
      });
      if (!isOwn && areWithin(kMinute, row.time, now)) rows.push_back(row);
    }
  }
  return rows;
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
