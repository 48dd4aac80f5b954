#include "rules/bar/MenuBarTitle.hpp"

#include <gmock/gmock.h>

#include <limits>

#include "tests/fakes/FakePlatform.hpp"
#include "tests/fakes/SystemTimeZone.hpp"

namespace Hilalor {

static std::ostream& operator<<(std::ostream& out, const ItemTitle& title) {
  const auto& [form, upper, lower, minutes] = title.compact;
  return out << '"' << title.whole() << "\", compact " << static_cast<int>(form) << ": " << upper
             << '/' << lower << '/' << minutes;
}

namespace {

// 2026-04-06 00:00 in Riyadh, where the machine and the effective location are.
constexpr Date kMidnight{1775422800};

class MenuBarTitleTest : public ::testing::Test {
 protected:
  [[nodiscard]] AppSettings& settings() { return desktop_.settings(); }

 private:
  SystemTimeZone zone_{"Asia/Riyadh"};
  FakePlatform desktop_;

 protected:
  PrayerCourse course_{desktop_.settings()};
};

TEST_F(MenuBarTitleTest, SaysAllAndWhatMattersOfIt) {
  using Adhan::Prayer;
  using Form = CompactTitle::Form;
  constexpr auto kMosque = TitleGlyph::mosque;
  const auto left = [](Prayer prayer, double minutes) {
    return countdown({prayer, kMidnight + Seconds(minutes * 60)}, kMidnight);
  };
  const auto of = [this](MenuBarStyle style) {
    settings().menuBarStyle = style;
    return menuBarTitle(course_, Moment::at(kMidnight));
  };
  const struct {
    ItemTitle title;
    const char* whole;
    ItemTitle parts;
  } cases[] = {
      {left(Prayer::maghrib, 65),
       "Maghrib 1h 5m",
       {{}, "Maghrib 1h 5m", {Form::lines, "Mag", "1h", "05"}}},
      {left(Prayer::fajr, 60), "Fajr 1h 0m", {{}, "Fajr 1h 0m", {Form::lines, "Fajr", "1h", "00"}}},
      {left(Prayer::dhuhr, 599),
       "Dhuhr 9h 59m",
       {{}, "Dhuhr 9h 59m", {Form::lines, "Dhu", "9h", "59"}}},
      {left(Prayer::fajr, 600),
       "Fajr 10h 0m",
       {{}, "Fajr 10h 0m", {Form::lines, "Fajr", "10h", {}}}},
      {left(Prayer::isha, 59.99), "Isha 59m", {{}, "Isha 59m", {Form::lines, "Isha", "59m", {}}}},
      {left(Prayer::asr, -1), "Asr 0m", {{}, "Asr 0m", {Form::lines, "Asr", "0m", {}}}},
      {athanTitle("Maghrib Athan"),
       "\U0001F54C Maghrib Athan",
       {kMosque, "Maghrib Athan", {Form::lines, "Mag", "now", {}}}},
      {athanTitle(""), "\U0001F54C ", {kMosque, "", {.form = Form::glyph}}},
      {dateTitle(PrimaryCalendar::hijri, Moment::at(kMidnight)),
       "18 Shaw.",
       {{}, "18 Shaw.", {Form::page, "18", {}, {}}}},
      {of(MenuBarStyle::date), "6 Apr", {{}, "6 Apr", {Form::page, "6", {}, {}}}},
      {of(MenuBarStyle::emoji),
       "\U0001F4C5",
       {TitleGlyph::calendar, std::nullopt, {.form = Form::glyph}}},
      {of(MenuBarStyle::nextPrayer),
       "Fajr 4h 21m",
       {{}, "Fajr 4h 21m", {Form::lines, "Fajr", "4h", "21"}}},
  };
  for (const auto& [title, whole, parts] : cases) {
    EXPECT_EQ(title.whole(), whole);
    EXPECT_EQ(title, parts);
  }
}

TEST_F(MenuBarTitleTest, SunnahRowsDoNotCount) {
  const Date afterIsha = kMidnight + std::chrono::hours(22);
  const auto without = nextPrayerTitle(course_, afterIsha);
  EXPECT_TRUE(without.whole().starts_with("Fajr ")) << without.whole();
  settings().showSunnahTimes = true;
  EXPECT_EQ(nextPrayerTitle(course_, afterIsha), without);
}

TEST_F(MenuBarTitleTest, NonsensePlacesAreNoMoreThanThat) {
  settings().locationMode = LocationMode::manual;
  const auto title =
      ::testing::MatchesRegex("\U0001F54C|(Fajr|Dhuhr|Asr|Maghrib|Isha) ([0-9]+h )?[0-9]+m");
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  for (const double number : {kNaN, kInfinity, -kInfinity, 1e300, -1e300, 1e18, 720.0, 90.0}) {
    SCOPED_TRACE(number);
    settings().manualLatitude = number;
    settings().manualLongitude = 10.0;
    EXPECT_THAT(nextPrayerTitle(course_, kMidnight).whole(), title);
    settings().manualLatitude = 21.0;
    settings().manualLongitude = number;
    EXPECT_THAT(nextPrayerTitle(course_, kMidnight).whole(), title);
  }
}

}  // namespace
}  // namespace Hilalor
