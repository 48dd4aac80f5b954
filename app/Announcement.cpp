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

/// The prayers of a day beside today near the instant, but for those that today has itself.
void addThoseNear(Date now, const Adhan::PrayerTimes& beside,
                  const std::optional<Adhan::PrayerTimes>& own, std::vector<PrayerTime>& rows) {
  const auto prayers = Adhan::allCases<Adhan::Prayer>();
  for (std::size_t index = 0; index < prayers.size(); ++index) {
    const Date time = beside.time(prayers[index]);
    const bool isOwn = own && areWithin(kHalfADay, own->time(prayers[index]), time);
    if (isOwn || !areWithin(kMinute, time, now)) continue;
    rows.push_back(PrayerTimesCalculator::rows(beside, false)[index]);
  }
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
  if (!today.day) return {};
  const auto timesOf = [&](int daysLater) {
    const DateComponents day{today.year, today.month, *today.day + daysLater, {}, {}, {}};
    return PrayerTimesCalculator::times(day, place.latitude, place.longitude, settings);
  };
  const auto own = timesOf(0);
  auto rows = own ? PrayerTimesCalculator::rows(*own, false) : std::vector<PrayerTime>();
  for (const int daysLater : {-1, 1}) {
    if (const auto beside = timesOf(daysLater)) addThoseNear(now, *beside, own, rows);
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
