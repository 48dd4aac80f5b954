#include "rules/prayer/PrayerDay.hpp"

#include <algorithm>

namespace Hilalor {
namespace {

using Adhan::Prayer;

constexpr auto kPrayers = Adhan::allCases<Prayer>();

Date timeOf(const SixTimes& times, Prayer prayer) {
  return times[static_cast<std::size_t>(prayer)];
}

/// None where it is out of order.
std::optional<Date> fajrOf(const SixTimes& times, const std::optional<SixTimes>& before) {
  const Date fajr = timeOf(times, Prayer::fajr);
  const bool isBeforeNight = before && fajr < timeOf(*before, Prayer::maghrib);
  if (isBeforeNight || fajr > timeOf(times, Prayer::dhuhr)) return std::nullopt;
  return fajr;
}

}  // namespace

PrayerDay::PrayerDay(const SixTimes& times, const std::optional<SixTimes>& before,
                     const std::optional<SixTimes>& after)
    : dhuhr_(timeOf(times, Prayer::dhuhr)),
      nextFajr_(after ? fajrOf(*after, times) : std::nullopt) {
  const Date noon = dhuhr_;
  at(Prayer::dhuhr) = noon;
  at(Prayer::fajr) = fajrOf(times, before);
  const auto sunrise = timeOf(times, Prayer::sunrise);
  if (sunrise >= timeOf(times, Prayer::fajr) && sunrise <= noon) at(Prayer::sunrise) = sunrise;
  const auto maghrib = timeOf(times, Prayer::maghrib);
  if (maghrib >= noon) at(Prayer::maghrib) = maghrib;
  const auto isha = timeOf(times, Prayer::isha);
  if (isha >= std::max(maghrib, noon)) at(Prayer::isha) = isha;
  const auto asr = timeOf(times, Prayer::asr);
  if (asr >= noon && asr <= maghrib) at(Prayer::asr) = asr;
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
