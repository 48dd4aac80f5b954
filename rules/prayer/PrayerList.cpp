#include "rules/prayer/PrayerList.hpp"

#include "datetime/Calendar.hpp"
#include "datetime/DateFormatter.hpp"

namespace Hilalor {
namespace {

std::vector<PrayerRow> prayerRows(const PrayerDay& day, const std::optional<CalledPrayer>& active,
                                  Date now, const DateFormatter& timeFormatter, bool showSunnah) {
  std::vector<PrayerRow> rows;
  const auto add = [&](ListedTime listed, Date time) -> PrayerRow& {
    return rows.emplace_back(PrayerRow{
        .listed = listed, .time = timeFormatter.string(time), .isPast = day.isPast(time, now)});
  };
  for (const auto prayer : Adhan::allCases<Adhan::Prayer>()) {
    const auto time = day.time(prayer);
    if (time) add(listed(prayer), *time).isActive = active == CalledPrayer{prayer, *time};
  }
  const auto sunnah = showSunnah ? day.sunnahTimes() : std::nullopt;
  if (sunnah) {
    add(ListedTime::middleOfTheNight, sunnah->middleOfTheNight);
    add(ListedTime::lastThirdOfTheNight, sunnah->lastThirdOfTheNight);
  }
  return rows;
}

}  // namespace

PrayerList prayerList(const PrayerCourse& course, Date displayDate, Date now) {
  const EffectiveLocation place = course.settings().effectiveLocation();
  const Calendar gregorian(CalendarIdentifier::gregorian, place.timeZone);
  const auto hijri = course.settings().hijriCalendar(place.timeZone);
  PrayerList list{
      .gregorianDate = DateFormatter("EEEE, d MMMM yyyy", gregorian).string(displayDate),
      .hijriDate = DateFormatter("d MMMM yyyy", hijri).string(displayDate),
      .placeName = place.name,
      .rows = {}};
  const auto day = course.day(displayDate);
  if (!day) return list;
  const auto active = course.hasBegun(displayDate, now) ? course.next(now) : std::nullopt;
  list.rows =
      prayerRows(*day, active, now,
                 DateFormatter(course.settings().use24HourClock ? "HH:mm" : "hh:mm a", gregorian),
                 course.settings().showSunnahTimes);
  return list;
}

}  // namespace Hilalor
