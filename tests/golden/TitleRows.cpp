#include <algorithm>
#include <string>

#include "rules/bar/MenuBarTitle.hpp"
#include "rules/prayer/PrayerTimesCalculator.hpp"
#include "tests/fakes/FakePlatform.hpp"
#include "tests/fakes/SystemTimeZone.hpp"
#include "tests/golden/Inputs.hpp"
#include "tests/golden/Kinds.hpp"

namespace Golden {
namespace {

using namespace Hilalor;

constexpr auto kDay = std::chrono::hours(24);

bool isOnSchedule(const CalledPrayer& prayer, Date day, const AppSettings& settings) {
  const auto place = settings.effectiveLocation();
  return std::ranges::any_of(PrayerTimesCalculator::calculate(day, place.latitude, place.longitude,
                                                              place.timeZone, false, settings),
                             [&](const PrayerTime& row) { return row.time == prayer.time; });
}

/// What the row tells the time to. Rows know the engine's schedules of today and tomorrow by their
/// dates. Where the next prayer is on neither, near the date line and after midnight before Isha,
/// they tell of the Fajr that follows.
std::optional<CalledPrayer> toldPrayer(const PrayerCourse& course, Date now) {
  const auto next = course.next(now);
  if (!next || isOnSchedule(*next, now, course.settings()) ||
      isOnSchedule(*next, now + kDay, course.settings()))
    return next;
  const auto prayers = course.between(now, now + kDay);
  const auto fajr = std::ranges::find(prayers, Adhan::Prayer::fajr, &CalledPrayer::prayer);
  return fajr == prayers.end() ? std::nullopt : std::optional(*fajr);
}

}  // namespace

void checkTitle(const Json& row, Checks& checks) {
  const SystemTimeZone zone(row.at("systemTimeZone").get<std::string>());
  FakePlatform desktop;
  auto& settings = desktop.settings();
  chooseMethod(row, settings);
  const auto place = coordinates(row);
  settings.locationMode = LocationMode::manual;
  settings.manualLatitude = place.latitude;
  settings.manualLongitude = place.longitude;
  settings.manualTimeZoneId = row.at("timeZone").get<std::string>();
  const PrayerCourse course(settings);
  const Date now{row.at("now").get<double>()};
  const auto told = toldPrayer(course, now);
  checks.equal(
      "title", row.at("title"),
      (told == course.next(now) ? nextPrayerTitle(course, now) : countdown(*told, now)).whole());
}

}  // namespace Golden
