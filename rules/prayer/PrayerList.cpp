#include "rules/prayer/PrayerList.hpp"

#include <string_view>

#include "datetime/Calendar.hpp"
#include "datetime/DateFormatter.hpp"
#include "rules/prayer/PrayerTimesCalculator.hpp"

namespace Hilalor {
namespace {

std::vector<PrayerRow> prayerRows(const PrayerDay& day, const std::optional<CalledPrayer>& active,
                                  Date now, const DateFormatter& timeFormatter, bool showSunnah) {
  std::vector<PrayerRow> rows;
  const auto add = [&](std::string_view name, Date time) -> PrayerRow& {
    return rows.emplace_back(PrayerRow{.name = std::string(name),
                                       .time = timeFormatter.string(time),
                                       .isPast = day.isPast(time, now)});
  };
  for (const auto prayer : Adhan::allCases<Adhan::Prayer>()) {
    const auto time = day.time(prayer);
    if (time) add(displayName(prayer), *time).isActive = active == CalledPrayer{prayer, *time};
  }
  const auto sunnah = showSunnah ? day.sunnahTimes() : std::nullopt;
  if (sunnah) {
    add("Middle of Night", sunnah->middleOfTheNight).isSunnah = true;
    add("Last Third", sunnah->lastThirdOfTheNight).isSunnah = true;
  }
  return rows;
}

}  // namespace

PrayerList prayerList(const PrayerCourse& course, Date displayDate, Date now) {
  const EffectiveLocation place = course.settings().effectiveLocation();
  const Calendar gregorian(CalendarIdentifier::gregorian, place.timeZone);
  const Calendar hijri(CalendarIdentifier::islamicUmmAlQura, place.timeZone);
  PrayerList list{
      .gregorianDate = DateFormatter("EEEE, d MMMM yyyy", gregorian).string(displayDate),
      .hijriDate = DateFormatter("d MMMM yyyy", hijri).string(displayDate),
      .placeName = place.name,
      .rows = {}};
  const auto day = course.day(displayDate);
  if (!day) return list;
  const auto active = course.hasBegun(displayDate, now) ? course.next(now) : std::nullopt;
  list.rows = prayerRows(*day, active, now, DateFormatter("hh:mm a", gregorian),
                         course.settings().showSunnahTimes);
  return list;
}

}  // namespace Hilalor
