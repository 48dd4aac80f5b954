#include "Adhan/SunnahTimes.hpp"

#include "Adhan/Extensions/DateUtilities.hpp"

namespace Adhan {

std::optional<SunnahTimes> SunnahTimes::make(const PrayerTimes& today) {
  const auto tomorrow = gregorianUTC().dayAfter(today.date);
  if (!tomorrow) return std::nullopt;
  const auto nextDay = PrayerTimes::make(today.coordinates, *tomorrow, today.calculationParameters);
  if (!nextDay) return std::nullopt;
  return ofNight(today.maghrib, nextDay->fajr);
}

SunnahTimes SunnahTimes::ofNight(Date maghrib, Date nextFajr) {
  const Seconds night = nextFajr - maghrib;
  return {roundedMinute(maghrib + night * 0.5, Rounding::nearest),
          roundedMinute(maghrib + night * (2.0 / 3), Rounding::nearest)};
}

}  // namespace Adhan
