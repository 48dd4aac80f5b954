#include "Adhan/PrayerTimes.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "Adhan/Astronomy/SolarTime.hpp"
#include "Adhan/ExactTimes.hpp"
#include "Adhan/Qibla.hpp"
#include "Adhan/SunnahTimes.hpp"
#include "tests/Adhan/Days.hpp"

namespace Adhan {
namespace {

constexpr Coordinates kHelsinki{60.1699, 24.9384};

TEST(ExactTimes, TakeTheAngleWhereTheNightIsLongEnough) {
  auto parameters = params(CalculationMethod::muslimWorldLeague);
  const auto bound = ExactTimes::make(kRiyadh, day(2026, 3, 20), parameters);
  parameters.highLatitudeRule = HighLatitudeRule::seventhOfTheNight;
  parameters.fajrAngle = 30;
  parameters.ishaAngle = 30;
  const auto bounded = ExactTimes::make(kRiyadh, day(2026, 3, 20), parameters);
  ASSERT_TRUE(bound && bounded);
  EXPECT_NEAR((bound->sunrise - bound->fajr).count() / 60, 75.6, 1) << "18 degrees";
  EXPECT_NEAR((bounded->sunrise - bounded->fajr).count() / 60, 12 * 60 / 7.0, 2);
  EXPECT_NEAR((bounded->isha - bounded->maghrib).count() / 60, 12 * 60 / 7.0, 2);
}

TEST(ExactTimes, MoveMaghribToItsAngleOnlyBeforeIsha) {
  auto parameters = params(CalculationMethod::tehran);
  const auto usual = ExactTimes::make(kRiyadh, day(2026, 3, 20), parameters).value();
  parameters.maghribAngle = std::nullopt;
  const auto sunset = ExactTimes::make(kRiyadh, day(2026, 3, 20), parameters).value().maghrib;
  EXPECT_NEAR((usual.maghrib - sunset).count() / 60, 16, 1.5);
  for (const double angle : {15.0, 0.5, -10.0, 89.0}) {
    parameters.maghribAngle = angle;
    EXPECT_EQ(ExactTimes::make(kRiyadh, day(2026, 3, 20), parameters).value().maghrib, sunset)
        << angle << " degrees: after isha, before sunset or never";
  }
}

// The twilights as their rule says, from the sun of both days.
std::optional<ExactTimes> exactBySolarTime(const Coordinates& place, const DateComponents& date,
                                           const CalculationParameters& parameters) {
  const auto& calendar = gregorianUTC();
  const auto sun = SolarTime::make(date, place);
  const auto nextSun = SolarTime::make(calendar.dayAfter(date).value(), place);
  if (!sun || !nextSun || !sun->afternoon(1)) return std::nullopt;
  const Date sunrise = *calendar.date(sun->sunrise);
  const Date sunset = *calendar.date(sun->sunset);
  const Seconds night = *calendar.date(nextSun->sunrise) - sunset;
  const auto portions = parameters.nightPortions(place);
  const auto dawn = sun->timeForSolarAngle({-parameters.fajrAngle}, false);
  const auto nightfall = sun->timeForSolarAngle({-parameters.ishaAngle}, true);
  const Date earliest = sunrise - portions.fajr * night;
  const Date latest = sunset + portions.isha * night;
  return ExactTimes{dawn ? std::max(*calendar.date(*dawn), earliest) : earliest,
                    sunrise,
                    *calendar.date(sun->transit),
                    *calendar.date(*sun->afternoon(1)),
                    sunset,
                    nightfall ? std::min(*calendar.date(*nightfall), latest) : latest};
}

TEST(PrayerTimes, AreTheSameToTheLastBitWithTheSunKept) {
  std::mt19937 random(1447);
  std::uniform_real_distribution<> latitude(-70, 70);
  std::uniform_real_distribution<> longitude(-180, 180);
  Ephemeris ephemeris;
  Date start = at(2026, 1, 1, 0);
  for (int step = 0; step < 20'000; ++step) {
    // Another place, mostly on the same date or one beside it, at times far away.
    if (step % 3 == 0) start = start + std::chrono::days(random() % 2 == 0 ? 1 : -1);
    if (step % 50 == 0) start = at(1900, 1, 1, 0) + std::chrono::days(random() % 110'000);
    auto parameters = params(CalculationMethod::muslimWorldLeague);
    if (step % 7 == 0) parameters.highLatitudeRule = HighLatitudeRule::twilightAngle;
    const auto fields = gregorianUTC().components(start);
    const auto date = day(*fields.year, *fields.month, *fields.day);
    const Coordinates place{latitude(random), longitude(random)};
    ASSERT_EQ(ExactTimes::make(place, date, parameters, ephemeris),
              exactBySolarTime(place, date, parameters))
        << place << " on " << date;
  }
}

TEST(PrayerTimes, AddMinutesThenRound) {
  auto parameters = params(CalculationMethod::singapore);
  parameters.adjustments = {.fajr = 10, .sunrise = -10, .dhuhr = 2, .isha = -1440};
  const auto exact = ExactTimes::make(kRiyadh, day(2026, 11, 16), parameters).value();
  const auto times = PrayerTimes::make(kRiyadh, day(2026, 11, 16), parameters).value();
  const auto roundedUp = [](Date date) { return Date{60 * std::ceil(date.secondsSince1970 / 60)}; };
  EXPECT_EQ(times.fajr, roundedUp(exact.fajr) + std::chrono::minutes(10));
  EXPECT_EQ(times.sunrise, roundedUp(exact.sunrise) - std::chrono::minutes(10));
  EXPECT_EQ(times.dhuhr, roundedUp(exact.dhuhr) + std::chrono::minutes(3));
  EXPECT_EQ(times.asr, roundedUp(exact.asr));
  EXPECT_EQ(times.isha, roundedUp(exact.isha) - std::chrono::days(1));
  EXPECT_EQ(times.coordinates, kRiyadh);
  EXPECT_EQ(times.date, day(2026, 11, 16));
  EXPECT_EQ(times.calculationParameters, parameters);
}

TEST(PrayerTimes, TellTheCurrentAndTheNextPrayer) {
  const auto times =
      PrayerTimes::make(kRiyadh, day(2026, 11, 16), params(CalculationMethod::ummAlQura)).value();
  EXPECT_EQ(times.currentPrayer(times.fajr - Seconds(1)), std::nullopt);
  EXPECT_EQ(times.nextPrayer(times.fajr - Seconds(1)), Prayer::fajr);
  std::optional<Prayer> before;
  for (const Prayer prayer : allCases<Prayer>()) {
    const Date time = times.time(prayer);
    EXPECT_EQ(times.currentPrayer(time - Seconds(0.001)), before) << prayer;
    EXPECT_EQ(times.nextPrayer(time - Seconds(0.001)), prayer);
    EXPECT_EQ(times.currentPrayer(time), prayer);
    before = prayer;
  }
  EXPECT_EQ(times.nextPrayer(times.isha), std::nullopt);
}

TEST(PrayerTimes, HaveNoResultInPolarDayOrWithoutAYear) {
  const auto parameters = params(CalculationMethod::muslimWorldLeague);
  EXPECT_FALSE(PrayerTimes::make({80, 20}, day(2026, 6, 21), parameters));
  DateComponents yearless = day(2026, 6, 21);
  yearless.year = std::nullopt;
  EXPECT_FALSE(PrayerTimes::make(kRiyadh, yearless, parameters));
}

void expectNoResultOrFinite(const Coordinates& place, const DateComponents& date,
                            const CalculationParameters& parameters) {
  SCOPED_TRACE(testing::Message() << place << " on " << date << ' ' << parameters.method);
  const auto times = PrayerTimes::make(place, date, parameters);
  if (!times) return;
  for (const Prayer prayer : allCases<Prayer>()) {
    EXPECT_TRUE(std::isfinite(times->time(prayer).secondsSince1970)) << prayer;
  }
  static_cast<void>(SunnahTimes::make(*times));
}

TEST(PrayerTimes, SurviveNonsense) {
  constexpr double kLargest = std::numeric_limits<double>::max();
  constexpr int kLeast = std::numeric_limits<int>::min();
  constexpr int kMost = std::numeric_limits<int>::max();
  const double numbers[] = {0,         90,        -90,        180,         360,
                            1e15,      1e300,     -1e300,     1e308,       kLargest,
                            -kLargest, kInfinity, -kInfinity, std::nan("")};
  const DateComponents dates[] = {
      day(2026, 11, 16),    day(kLeast, 1, 1),      day(kMost, 1, 1),
      day(2026, kMost, 1),  day(2026, kLeast, 1),   day(2026, 1, kMost),
      day(2026, 1, kLeast), day(280000000, 12, 31), {2026, 1, 1, kMost, kLeast, kMost}};
  for (const auto method : {CalculationMethod::tehran, CalculationMethod::moonsightingCommittee}) {
    auto parameters = params(method);
    for (const double latitude : numbers) {
      for (const double longitude : numbers) {
        for (const auto& date : dates)
          expectNoResultOrFinite({latitude, longitude}, date, parameters);
      }
    }
    for (const double angle : numbers) {
      parameters.fajrAngle = parameters.ishaAngle = angle;
      parameters.maghribAngle = angle;
      parameters.highLatitudeRule = HighLatitudeRule::twilightAngle;
      parameters.adjustments = {kMost, kLeast, kMost, kLeast, kMost, kLeast};
      parameters.methodAdjustments = parameters.adjustments;
      expectNoResultOrFinite(kRiyadh, dates[0], parameters);
      parameters.ishaInterval = kMost;
      expectNoResultOrFinite(kHelsinki, dates[0], parameters);
    }
  }
}

TEST(Qibla, PointsAlongTheGreatCircle) {
  EXPECT_NEAR(Qibla({60, 39.8261818}).direction, 180, 1e-9) << "north on the meridian";
  EXPECT_NEAR(std::remainder(Qibla({-60, 39.8261818}).direction, 360), 0, 1e-9);
  const double fromWest = Qibla({21.4225241, -30}).direction;
  EXPECT_GT(fromWest, 0);
  EXPECT_LT(fromWest, 90);
  // Published bearings to whole degrees.
  EXPECT_NEAR(Qibla({40.7128, -74.0059}).direction, 58, 1) << "New York";
  EXPECT_NEAR(Qibla({-33.8688, 151.2093}).direction, 277, 1) << "Sydney";
}

}  // namespace
}  // namespace Adhan
