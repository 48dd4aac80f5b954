#include "Adhan/PrayerTimes.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "Adhan/ExactTimes.hpp"
#include "Adhan/SunnahTimes.hpp"
#include "tests/Adhan/Days.hpp"

namespace Adhan {
namespace {

constexpr Coordinates kHelsinki{60.1699, 24.9384};

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
              ExactTimes::make(place, date, parameters))
        << place << " on " << date;
  }
}

TEST(PrayerTimes, RememberWhatTheyWereMadeOf) {
  const auto parameters = params(CalculationMethod::singapore);
  const auto times = PrayerTimes::make(kRiyadh, day(2026, 11, 16), parameters).value();
  EXPECT_EQ(times.coordinates, kRiyadh);
  EXPECT_EQ(times.date, day(2026, 11, 16));
  EXPECT_EQ(times.calculationParameters, parameters);
}

TEST(PrayerTimes, HaveNoResultWithoutAYear) {
  DateComponents yearless = day(2026, 6, 21);
  yearless.year = std::nullopt;
  EXPECT_FALSE(PrayerTimes::make(kRiyadh, yearless, params(CalculationMethod::tehran)));
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

}  // namespace
}  // namespace Adhan
