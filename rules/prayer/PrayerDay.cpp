#include "rules/prayer/PrayerDay.hpp"

#include <algorithm>

namespace Hilalor {
namespace {

using Adhan::Prayer;

constexpr auto kPrayers = Adhan::allCases<Prayer>();

Date timeOf(const SixTimes& times, Prayer prayer) {
  return times[static_cast<std::size_t>(prayer)];
}

SixTimes withoutMinutes(SixTimes times, const Adhan::PrayerAdjustments& minutes) {
  const std::array own{minutes.fajr, minutes.sunrise, minutes.dhuhr,
                       minutes.asr,  minutes.maghrib, minutes.isha};
  for (std::size_t prayer = 0; prayer < times.size(); ++prayer)
    times[prayer] = times[prayer] - std::chrono::minutes(own[prayer]);
  return times;
}

std::optional<SixTimes> withoutMinutes(const std::optional<SixTimes>& times,
                                       const Adhan::PrayerAdjustments& minutes) {
  return times ? std::optional(withoutMinutes(*times, minutes)) : std::nullopt;
}

bool isFajrInOrder(const SixTimes& times, const std::optional<SixTimes>& before) {
  const Date fajr = timeOf(times, Prayer::fajr);
  const bool isBeforeNight = before && fajr < timeOf(*before, Prayer::maghrib);
  return !isBeforeNight && fajr <= timeOf(times, Prayer::dhuhr);
}

/// Whether the sun's own time is in the day's order.
bool isInOrder(Prayer prayer, const SixTimes& times, const std::optional<SixTimes>& before) {
  const Date time = timeOf(times, prayer);
  const Date noon = timeOf(times, Prayer::dhuhr);
  const Date maghrib = timeOf(times, Prayer::maghrib);
  switch (prayer) {
    case Prayer::fajr:
      return isFajrInOrder(times, before);
    case Prayer::sunrise:
      return time >= timeOf(times, Prayer::fajr) && time <= noon;
    case Prayer::dhuhr:
      return true;
    case Prayer::asr:
      return time >= noon && time <= maghrib;
    case Prayer::maghrib:
      return time >= noon;
    case Prayer::isha:
      return time >= std::max(maghrib, noon);
  }
  return false;
}

}  // namespace

PrayerDay::PrayerDay(const SixTimes& times, const std::optional<SixTimes>& before,
                     const std::optional<SixTimes>& after, const Adhan::PrayerAdjustments& minutes)
    : dhuhr_(timeOf(times, Prayer::dhuhr)) {
  const auto suns = withoutMinutes(times, minutes);
  const auto sunsBefore = withoutMinutes(before, minutes);
  for (const Prayer prayer : kPrayers) {
    if (isInOrder(prayer, suns, sunsBefore)) at(prayer) = timeOf(times, prayer);
  }
  const auto sunsAfter = withoutMinutes(after, minutes);
  if (sunsAfter && isFajrInOrder(*sunsAfter, suns)) nextFajr_ = timeOf(*after, Prayer::fajr);
}

std::optional<Date> PrayerDay::time(Prayer prayer) const {
  return times_[static_cast<std::size_t>(prayer)];
}

std::optional<Date>& PrayerDay::at(Prayer prayer) {
  return times_[static_cast<std::size_t>(prayer)];
}

std::vector<CalledPrayer> PrayerDay::called() const {
  std::vector<CalledPrayer> prayers;
  prayers.reserve(kPrayers.size());
  for (const Prayer prayer : kPrayers) {
    const auto comes = time(prayer);
    if (!comes || prayer == Prayer::sunrise) continue;
    if (!nextFajr_ || *comes <= *nextFajr_) prayers.push_back({prayer, *comes});
  }
  // The user's minutes can put one after another.
  std::ranges::stable_sort(prayers, {}, &CalledPrayer::time);
  return prayers;
}

bool PrayerDay::isPast(Date time, Date now) const {
  return time <= now || (nextFajr_ && *nextFajr_ <= now);
}

std::optional<Adhan::SunnahTimes> PrayerDay::sunnahTimes() const {
  const auto maghrib = time(Prayer::maghrib);
  if (!maghrib || !nextFajr_) return std::nullopt;
  return Adhan::SunnahTimes::ofNight(*maghrib, *nextFajr_);
}

}  // namespace Hilalor
