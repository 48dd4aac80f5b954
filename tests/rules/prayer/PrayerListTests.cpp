#include "rules/prayer/PrayerList.hpp"

#include <gmock/gmock.h>

#include <set>
#include <string>

#include "datetime/Calendar.hpp"
#include "rules/prayer/PrayerTimesCalculator.hpp"
#include "tests/fakes/FakePlatform.hpp"
#include "tests/fakes/SystemTimeZone.hpp"

namespace Hilalor {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;

Date riyadh(int day, int hour, int minute) {
  const Calendar calendar(CalendarIdentifier::gregorian, TimeZone::current());
  return *calendar.date(
      {.year = 2026, .month = 11, .day = day, .hour = hour, .minute = minute, .second = 0});
}

/// The names of the rows for which the field holds.
std::vector<std::string> named(const PrayerList& list, bool PrayerRow::*field) {
  std::vector<std::string> names;
  for (const PrayerRow& row : list.rows)
    if (row.*field) names.emplace_back(displayName(row.listed));
  return names;
}

class PrayerListTest : public testing::Test {
 protected:
  SystemTimeZone zone{"Asia/Riyadh"};
  FakePlatform desktop;
  PrayerCourse course{desktop.settings()};
};

TEST_F(PrayerListTest, HighlightsTheNextPrayerAndDimsThePastOnes) {
  const auto at = [this](int hour, int minute) {
    const Date now = riyadh(16, hour, minute);
    return prayerList(course, now, now);
  };
  EXPECT_THAT(named(at(13, 0), &PrayerRow::isActive), ElementsAre("Asr"));
  EXPECT_THAT(named(at(13, 0), &PrayerRow::isPast), ElementsAre("Fajr", "Sunrise", "Dhuhr"));
  // Between Fajr and sunrise the next is Dhuhr, never sunrise.
  EXPECT_THAT(named(at(5, 30), &PrayerRow::isActive), ElementsAre("Dhuhr"));
  EXPECT_THAT(named(at(23, 0), &PrayerRow::isActive), IsEmpty());
  EXPECT_EQ(named(at(23, 0), &PrayerRow::isPast).size(), 6U);
}

TEST_F(PrayerListTest, APrayerAtThisVerySecondIsPast) {
  const Date noon = riyadh(16, 12, 0);
  const auto place = desktop.settings().effectiveLocation();
  const auto prayers = PrayerTimesCalculator::calculate(noon, place.latitude, place.longitude,
                                                        place.timeZone, false, desktop.settings());
  const PrayerList list = prayerList(course, noon, prayers[2].time);
  EXPECT_THAT(named(list, &PrayerRow::isPast), ElementsAre("Fajr", "Sunrise", "Dhuhr"));
  EXPECT_THAT(named(list, &PrayerRow::isActive), ElementsAre("Asr"));
}

TEST_F(PrayerListTest, HighlightsOnTodaysPageOnly) {
  const Date now = riyadh(16, 13, 0);
  const PrayerList yesterday = prayerList(course, riyadh(15, 13, 0), now);
  EXPECT_THAT(named(yesterday, &PrayerRow::isActive), IsEmpty());
  EXPECT_EQ(named(yesterday, &PrayerRow::isPast).size(), 6U);
  const PrayerList tomorrow = prayerList(course, riyadh(17, 13, 0), now);
  EXPECT_THAT(named(tomorrow, &PrayerRow::isActive), IsEmpty());
  EXPECT_THAT(named(tomorrow, &PrayerRow::isPast), IsEmpty());
  const PrayerList afterIsha = prayerList(course, riyadh(17, 13, 0), riyadh(16, 23, 0));
  EXPECT_THAT(named(afterIsha, &PrayerRow::isActive), IsEmpty());
}

TEST_F(PrayerListTest, IsWrittenInThePlacesTimeZone) {
  auto& settings = desktop.settings();
  settings.locationMode = LocationMode::manual;
  settings.manualLatitude = -6.2;
  settings.manualLongitude = 106.8;
  settings.manualLocationName = "Jakarta";
  settings.manualTimeZoneId = "Asia/Jakarta";
  // Late on the 16th in Riyadh it is early on the 17th in Jakarta.
  const Date now = riyadh(16, 23, 0);
  const PrayerList list = prayerList(course, now, now);
  EXPECT_EQ(list.gregorianDate, "Tuesday, 17 November 2026");
  EXPECT_EQ(list.hijriDate, "7 Jumada II 1448");
  EXPECT_EQ(list.placeName, "Jakarta");
  ASSERT_EQ(list.rows.size(), 6U);
  EXPECT_THAT(list.rows.front().time, testing::MatchesRegex("0[34]:[0-9][0-9] AM"));
  settings.use24HourClock = true;
  settings.hijriDays = -1;
  const PrayerList asTheUserHasIt = prayerList(course, now, now);
  EXPECT_EQ(asTheUserHasIt.hijriDate, "6 Jumada II 1448");
  EXPECT_THAT(asTheUserHasIt.rows.back().time, testing::MatchesRegex("1[89]:[0-9][0-9]"));
}

TEST_F(PrayerListTest, SunnahTimesComeLastAndAreNeverNext) {
  desktop.settings().showSunnahTimes = true;
  const Date now = riyadh(16, 22, 0);
  const PrayerList list = prayerList(course, now, now);
  ASSERT_EQ(list.rows.size(), 8U);
  EXPECT_EQ(list.rows[6].listed, ListedTime::middleOfTheNight);
  EXPECT_EQ(list.rows[7].listed, ListedTime::lastThirdOfTheNight);
  EXPECT_THAT(named(list, &PrayerRow::isActive), IsEmpty());
}

TEST_F(PrayerListTest, HasNoRowsWhereTheSunGivesNone) {
  auto& settings = desktop.settings();
  settings.locationMode = LocationMode::manual;
  settings.manualLatitude = 80;
  settings.manualLongitude = 20;
  const PrayerList list = prayerList(course, riyadh(16, 12, 0), riyadh(16, 12, 0));
  EXPECT_THAT(list.rows, IsEmpty());
  EXPECT_FALSE(list.gregorianDate.empty());
}

TEST_F(PrayerListTest, NoTwoRowsEverShareAnIdentifier) {
  std::set<std::string> ids;
  for (int time = 0; time < 100; ++time) {
    for (const auto& row : PrayerTimesCalculator::calculate(
             riyadh(16, 12, 0), 24.6877, 46.7219, TimeZone::current(), true, desktop.settings()))
      ids.insert(row.id.string());
  }
  EXPECT_EQ(ids.size(), 800U);
  EXPECT_THAT(*ids.begin(),
              MatchesRegex("[0-9a-f]+-[0-9a-f]+-4[0-9a-f]+-[89ab][0-9a-f]+-[0-9a-f]+"));
}

}  // namespace
}  // namespace Hilalor
