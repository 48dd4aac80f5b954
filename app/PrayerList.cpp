#include "app/PrayerList.hpp"

#include "datetime/Calendar.hpp"
#include "datetime/DateFormatter.hpp"

namespace Hilalor {

std::optional<std::size_t> activePrayerIndex(const std::vector<PrayerTime>& prayers,
                                             Date displayDate, Date now) {
  const Calendar calendar = Calendar::current();
  if (calendar.startOfDay(displayDate) != calendar.startOfDay(now)) return std::nullopt;
  for (std::size_t index = 0; index < prayers.size(); ++index) {
    const PrayerTime& prayer = prayers[index];
    if (!prayer.isSunrise && !prayer.isSunnah && prayer.time > now) return index;
  }
  return std::nullopt;
}

PrayerList prayerList(Date displayDate, Date now, const AppSettings& settings) {
  const EffectiveLocation place = settings.effectiveLocation();
  const auto prayers =
      PrayerTimesCalculator::calculate(displayDate, place.latitude, place.longitude, place.timeZone,
                                       settings.showSunnahTimes, settings);
  const Calendar gregorian(CalendarIdentifier::gregorian, place.timeZone);
  const Calendar hijri(CalendarIdentifier::islamicUmmAlQura, place.timeZone);
  const DateFormatter timeFormatter("hh:mm a", gregorian);
  const DateFormatter gregFormatter("EEEE, d MMMM yyyy", gregorian);
  const DateFormatter hijriFormatter("d MMMM yyyy", hijri);

  PrayerList list{.gregorianDate = gregFormatter.string(displayDate),
                  .hijriDate = hijriFormatter.string(displayDate),
                  .placeName = place.name,
                  .rows = {}};
  const auto active = activePrayerIndex(prayers, displayDate, now);
  for (std::size_t index = 0; index < prayers.size(); ++index) {
    const PrayerTime& prayer = prayers[index];
    list.rows.push_back({.name = prayer.name,
                         .time = timeFormatter.string(prayer.time),
                         .isActive = active == index,
                         .isPast = prayer.time <= now,
                         .isSunnah = prayer.isSunnah});
  }
  return list;
}

}  // namespace Hilalor
