#include "app/PrayerTimesCalculator.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "datetime/DateFormatter.hpp"
#include "tests/fakes/FakePlatform.hpp"

namespace Hilalor {
namespace {

using ::testing::ElementsAre;

class PrayerTimesCalculatorTest : public ::testing::Test {
 protected:
  [[nodiscard]] AppSettings& settings() { return AppSettings::shared(); }

  [[nodiscard]] std::vector<PrayerTime> riyadh(Date date, bool showSunnah = false) {
    return PrayerTimesCalculator::calculate(date, 24.6877, 46.7219, zone_, showSunnah);
  }

  [[nodiscard]] std::string localDay(Date date) {
    return DateFormatter("yyyy-MM-dd", Calendar(CalendarIdentifier::gregorian, zone_)).string(date);
  }

 private:
  FakePlatform desktop_;
  TimeZone zone_ = *TimeZone::named("Asia/Riyadh");
};

// 2026-03-05 23:30 in Riyadh, 20:30 in UTC.
constexpr Date kLateEvening{1772742600};

TEST_F(PrayerTimesCalculatorTest, ListsTheDayInItsFixedOrder) {
  std::vector<std::string> names;
  for (const auto& row : riyadh(kLateEvening, true)) {
    names.push_back(row.name);
    EXPECT_EQ(row.isSunrise, row.name == "Sunrise");
    EXPECT_EQ(row.isSunnah, row.name == "Middle of Night" || row.name == "Last Third");
  }
  EXPECT_THAT(names, ElementsAre("Fajr", "Sunrise", "Dhuhr", "Asr", "Maghrib", "Isha",
                                 "Middle of Night", "Last Third"));
  EXPECT_EQ(riyadh(kLateEvening).size(), 6U);
}

TEST_F(PrayerTimesCalculatorTest, TheDayIsTheCivilDayOfThePlace) {
  EXPECT_EQ(localDay(riyadh(kLateEvening)[0].time), "2026-03-05");
  EXPECT_EQ(localDay(riyadh(kLateEvening + std::chrono::hours(2))[0].time), "2026-03-06");
}

TEST_F(PrayerTimesCalculatorTest, TheSettingsChooseTheMethodAndTheSchoolOfAsr) {
  const auto shafi = riyadh(kLateEvening);
  EXPECT_EQ(shafi[5].time - shafi[4].time, Seconds(5400));
  settings().asrCalculation = AsrCalculation::hanafi;
  const auto hanafi = riyadh(kLateEvening);
  EXPECT_GT(hanafi[3].time, shafi[3].time);
  EXPECT_EQ(hanafi[4].time, shafi[4].time);
  settings().calculationMethod = PrayerCalculationMethod::egyptian;
  EXPECT_LT(riyadh(kLateEvening)[0].time, shafi[0].time);
}

TEST_F(PrayerTimesCalculatorTest, EveryMethodIsTheEnginesOfTheSameName) {
  std::set<std::string_view> names;
  for (const auto method : allCases<PrayerCalculationMethod>()) {
    EXPECT_EQ(rawValue(method), Adhan::rawValue(adhanMethod(method)));
    names.insert(displayName(method));
  }
  EXPECT_EQ(names.size(), 12U);
  EXPECT_EQ(displayName(PrayerCalculationMethod::turkey), "Turkey (Diyanet)");
  EXPECT_EQ(displayName(PrayerCalculationMethod::ummAlQura), "Umm Al-Qura, Makkah");
}

TEST_F(PrayerTimesCalculatorTest, NoTwoRowsShareAnIdentifier) {
  std::set<std::string> ids;
  for (int i = 0; i < 100; ++i) {
    for (const auto& row : riyadh(kLateEvening, true))
      ids.insert(row.id.string());
  }
  EXPECT_EQ(ids.size(), 800U);
  EXPECT_THAT(*ids.begin(),
              ::testing::MatchesRegex("[0-9a-f]+-[0-9a-f]+-4[0-9a-f]+-[89ab][0-9a-f]+-[0-9a-f]+"));
}

TEST_F(PrayerTimesCalculatorTest, ADayWithoutASunIsEmpty) {
  const Date midsummer{1782000000};
  const auto oslo = *TimeZone::named("Europe/Oslo");
  EXPECT_TRUE(PrayerTimesCalculator::calculate(midsummer, 80, 20, oslo, false).empty());
  EXPECT_TRUE(PrayerTimesCalculator::calculate(midsummer, 80, 20, oslo, true).empty());
}

}  // namespace
}  // namespace Hilalor
