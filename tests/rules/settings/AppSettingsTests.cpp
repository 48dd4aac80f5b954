#include "rules/settings/AppSettings.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>

#include "tests/fakes/FakePlatform.hpp"
#include "tests/fakes/SystemTimeZone.hpp"
#include "tests/fakes/TemporaryFolder.hpp"

namespace Hilalor {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AppSettingsTest : public ::testing::Test {
 protected:
  [[nodiscard]] AppSettings& settings() { return desktop().settings(); }
  [[nodiscard]] InMemoryDefaultsStore& store() { return desktop_.defaults; }
  [[nodiscard]] FakePlatform& desktop() { return desktop_; }

 private:
  FakePlatform desktop_;
};

TEST_F(AppSettingsTest, TakesDefaultsFromAnEmptyStoreAndWritesNothing) {
  const SystemTimeZone zone("Asia/Karachi");
  EXPECT_EQ(settings().menuBarStyle, MenuBarStyle::date);
  EXPECT_EQ(settings().primaryCalendar, PrimaryCalendar::gregorian);
  EXPECT_TRUE(settings().showSecondaryCalendar);
  EXPECT_TRUE(settings().showHolidays);
  EXPECT_TRUE(settings().showCalendar);
  EXPECT_EQ(settings().locationMode, LocationMode::automatic);
  EXPECT_EQ(settings().manualLatitude, 0.0);
  EXPECT_EQ(settings().manualLongitude, 0.0);
  EXPECT_EQ(settings().manualLocationName.value(), "");
  EXPECT_EQ(settings().manualTimeZoneId.value(), "Asia/Karachi");
  EXPECT_TRUE(settings().showPrayerTimes);
  EXPECT_FALSE(settings().showSunnahTimes);
  EXPECT_EQ(settings().calculationMethod, PrayerCalculationMethod::ummAlQura);
  EXPECT_EQ(settings().asrCalculation, AsrCalculation::shafi);
  EXPECT_FALSE(settings().prayerNotificationsEnabled);
  EXPECT_TRUE(settings().notificationBannerEnabled);
  EXPECT_FALSE(settings().beepSoundEnabled);
  EXPECT_EQ(settings().selectedBeepSound.value(), "Glass");
  EXPECT_FALSE(settings().beepLoopEnabled);
  EXPECT_EQ(settings().beepLoopSeconds, 10);
  EXPECT_FALSE(settings().athanEnabled);
  EXPECT_EQ(settings().athanVoice, AthanVoice::vemran);
  EXPECT_FALSE(settings().playBeepBeforeAthan);
  EXPECT_FALSE(settings().playDuaAfterAthan);
  EXPECT_EQ(settings().theme, AppTheme::system);
  for (const auto& minutes : settings().prayerMinutes)
    EXPECT_EQ(minutes, 0);
  EXPECT_EQ(settings().hijriDays, 0);
  EXPECT_EQ(settings().reminderMinutes, 0);
  EXPECT_FALSE(settings().use24HourClock);
  EXPECT_TRUE(store().writes.empty());
}

TEST_F(AppSettingsTest, ReadsWhatIsStoredAndFallsBackForWhatIsNotOfItsType) {
  store().setValue("appTheme", std::string("dark"));
  store().setValue("theme", std::string("light"));
  store().setValue("menuBarStyle", std::string("Emoji"));
  store().setValue("calculationMethod", std::string("other"));
  store().setValue("athanVoice", std::string("tolsar"));
  store().setValue("asrCalculation", true);
  store().setValue("beepLoopSeconds", std::string("15"));
  store().setValue("showHolidays", std::string("no"));
  store().setValue("showCalendar", std::int64_t{0});
  store().setValue("athanEnabled", std::int64_t{2});
  store().setValue("manualLatitude", std::int64_t{21});
  store().setValue("manualLongitude", std::string("39.8"));
  store().setValue("manualLocationName", 5.5);
  EXPECT_EQ(settings().theme, AppTheme::dark);
  EXPECT_EQ(settings().menuBarStyle, MenuBarStyle::date);
  EXPECT_EQ(settings().calculationMethod, PrayerCalculationMethod::ummAlQura);
  EXPECT_EQ(settings().athanVoice, AthanVoice::tolsar);
  EXPECT_EQ(settings().asrCalculation, AsrCalculation::shafi);
  EXPECT_EQ(settings().beepLoopSeconds, 10);
  EXPECT_TRUE(settings().showHolidays);
  EXPECT_FALSE(settings().showCalendar);
  EXPECT_FALSE(settings().athanEnabled);
  EXPECT_EQ(settings().manualLatitude, 21.0);
  EXPECT_EQ(settings().manualLongitude, 0.0);
  EXPECT_EQ(settings().manualLocationName.value(), "");
}

// What lies between the limits is taken, all else is the default.
TEST_F(AppSettingsTest, TakesNoAdjustmentThatCannotBe) {
  using Adjustment = std::function<std::int64_t(const AppSettings&)>;
  const auto minutes = [](Adhan::Prayer prayer) -> Adjustment {
    return [prayer](const auto& settings) { return settings.minutes(prayer).value(); };
  };
  const Adjustment hijri = [](const auto& settings) { return settings.hijriDays.value(); };
  const Adjustment reminder = [](const auto& settings) { return settings.reminderMinutes.value(); };
  const struct {
    const char* key;
    Adjustment read;
    DefaultsValue stored;
    std::int64_t expected;
  } cases[] = {{"fajrMinutes", minutes(Adhan::Prayer::fajr), std::int64_t{-60}, -60},
               {"sunriseMinutes", minutes(Adhan::Prayer::sunrise), std::int64_t{60}, 60},
               {"dhuhrMinutes", minutes(Adhan::Prayer::dhuhr), std::int64_t{61}, 0},
               {"asrMinutes", minutes(Adhan::Prayer::asr), 2.5, 0},
               {"maghribMinutes", minutes(Adhan::Prayer::maghrib), std::string("3"), 0},
               {"ishaMinutes", minutes(Adhan::Prayer::isha), std::int64_t{5}, 5},
               {"hijriDays", hijri, std::int64_t{-2}, -2},
               {"hijriDays", hijri, std::int64_t{3}, 0},
               {"reminderMinutes", reminder, std::int64_t{45}, 45},
               {"reminderMinutes", reminder, std::int64_t{25}, 0},
               {"reminderMinutes", reminder, std::int64_t{-5}, 0}};
  for (const auto& one : cases) {
    SCOPED_TRACE(one.key);
    desktop().restart();
    store().setValue(one.key, one.stored);
    EXPECT_EQ(one.read(settings()), one.expected);
  }
}

// Every enumeration's every case goes to the store and comes back by its own string.
template <typename Enumeration>
void expectRoundTrip(FakePlatform& desktop, const char* key,
                     Setting<Enumeration> AppSettings::*field) {
  SCOPED_TRACE(key);
  for (const auto value : allCases<Enumeration>()) {
    desktop.settings().*field = value;
    EXPECT_EQ(desktop.defaults.string(key), std::string(rawValue(value)));
    desktop.restart();
    EXPECT_EQ((desktop.settings().*field).value(), value);
  }
}

TEST_F(AppSettingsTest, KeepsEveryCaseOfEveryEnumeration) {
  expectRoundTrip(desktop(), "menuBarStyle", &AppSettings::menuBarStyle);
  expectRoundTrip(desktop(), "primaryCalendar", &AppSettings::primaryCalendar);
  expectRoundTrip(desktop(), "locationMode", &AppSettings::locationMode);
  expectRoundTrip(desktop(), "calculationMethod", &AppSettings::calculationMethod);
  expectRoundTrip(desktop(), "asrCalculation", &AppSettings::asrCalculation);
  expectRoundTrip(desktop(), "athanVoice", &AppSettings::athanVoice);
  expectRoundTrip(desktop(), "appTheme", &AppSettings::theme);
}

TEST_F(AppSettingsTest, AnnouncesThenPublishesThenStoresThenWrites) {
  std::vector<std::string> order;
  const auto note = [&](const std::string& what) {
    order.push_back(what + (settings().showHolidays ? " old" : " new") +
                    (store().boolean("showHolidays") ? " written" : ""));
  };
  const auto announced = settings().willChange.subscribe([&] { note("announced"); });
  const auto published = settings().showHolidays.publisher().subscribe(
      [&](bool value) { note(value ? "published true" : "published false"); });
  settings().showHolidays = false;
  note("done");
  EXPECT_THAT(order, ElementsAre("published true old", "announced old", "published false old",
                                 "done new written"));
}

TEST_F(AppSettingsTest, WritesAndPublishesAlsoWhatItAlreadyIs) {
  int told = 0;
  const auto subscription =
      settings().selectedBeepSound.publisher().subscribe([&](const auto&) { ++told; });
  settings().selectedBeepSound = "Glass";
  settings().selectedBeepSound = "Glass";
  EXPECT_EQ(told, 3);
  EXPECT_EQ(store().writes.size(), 2U);
}

TEST_F(AppSettingsTest, PublishesWhatComesInAndWritesNothing) {
  std::vector<AppTheme> themes;
  const auto subscription =
      settings().theme.publisher().subscribe([&](AppTheme theme) { themes.push_back(theme); });
  settings().athanEnabled = true;
  store().setValue("appTheme", std::string("dark"));
  store().setValue("manualLatitude", 21.4);
  store().writes.clear();
  store().cameIn.emit();
  store().cameIn.emit();
  EXPECT_THAT(themes, ElementsAre(AppTheme::system, AppTheme::dark));
  EXPECT_EQ(settings().manualLatitude, 21.4);
  EXPECT_TRUE(settings().athanEnabled);
  EXPECT_TRUE(store().writes.empty());
}

TEST_F(AppSettingsTest, ManualPlaceIsTheUsersOrTheFallback) {
  const SystemTimeZone zone("Europe/Oslo");
  settings().locationMode = LocationMode::manual;
  settings().manualLocationName = "Nowhere";
  EXPECT_EQ(settings().effectiveLocation().name, "Riyadh");
  EXPECT_EQ(settings().effectiveLocation().latitude, 24.6877);
  EXPECT_EQ(settings().effectiveLocation().longitude, 46.7219);
  EXPECT_EQ(settings().effectiveLocation().timeZone.identifier(), "Asia/Riyadh");

  settings().manualLongitude = 10.0;
  settings().manualTimeZoneId = "Asia/Riyadh";
  EXPECT_EQ(settings().effectiveLocation(),
            (EffectiveLocation{{0.0, 10.0}, "Nowhere", *TimeZone::named("Asia/Riyadh")}));

  settings().manualLocationName = "";
  settings().manualTimeZoneId = "Mars/Olympus";
  EXPECT_EQ(settings().effectiveLocation(),
            (EffectiveLocation{{0.0, 10.0}, "Custom Location", *TimeZone::named("Europe/Oslo")}));
  EXPECT_EQ(settings().manualTimeZoneId.value(), "Mars/Olympus");
}

TEST_F(AppSettingsTest, AutomaticPlaceIsTheFixOrTheFallback) {
  EXPECT_EQ(settings().effectiveLocation().name, "Riyadh");
  auto& located = desktop().locationManager();
  located.detectedTimeZone.assign(*TimeZone::named("Asia/Jakarta"));
  EXPECT_EQ(settings().effectiveLocation().name, "Riyadh");
  located.coordinate.assign(LocationCoordinate{-6.2, 106.8});
  EXPECT_EQ(settings().effectiveLocation(),
            (EffectiveLocation{{-6.2, 106.8}, "My Location", *TimeZone::named("Asia/Jakarta")}));
  located.locationName.assign("Jakarta");
  EXPECT_EQ(settings().effectiveLocation().name, "Jakarta");
}

TEST_F(AppSettingsTest, ListsTheBeepsOfEveryFolderByName) {
  const TemporaryFolder shipped;
  const TemporaryFolder users;
  for (const char* name : {"Glass.aiff", "Basso.AIFF", "notes.txt", "aiff", ".aiff", "Two.x.aiff"})
    std::ofstream(shipped.path() / name) << "sound";
  for (const char* name : {"Glass.aiff", "Adam.aiff"})
    std::ofstream(users.path() / name) << "sound";
  desktop().platform.soundFolders = {users.path(), "/nowhere/at/all", shipped.path()};
  EXPECT_THAT(settings().systemSoundNames(), ElementsAre("Adam", "Basso", "Glass", "Two.x"));
  desktop().restart();
  desktop().platform.soundFolders = {"/nowhere/at/all"};
  EXPECT_THAT(settings().systemSoundNames(), IsEmpty());
}

}  // namespace
}  // namespace Hilalor
