#include "rules/bar/StatusBarController.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "rules/prayer/PrayerTimesCalculator.hpp"
#include "tests/fakes/FakePlatform.hpp"
#include "tests/fakes/SystemTimeZone.hpp"

namespace Hilalor {
namespace {

using ::testing::ElementsAre;

// 2026-04-06 23:59:40 in Riyadh.
constexpr Date kLateEvening{1775509180};

class StatusBarControllerTest : public ::testing::Test {
 protected:
  [[nodiscard]] FakePlatform& desktop() { return desktop_; }
  [[nodiscard]] FakeStatusBar& bar() { return desktop_.statusBar; }
  [[nodiscard]] VirtualLoop& loop() { return desktop_.loop; }

  void start() {
    controller_ = std::make_unique<StatusBarController>(desktop().barContext(), nullptr);
    loop().runPosted();
    bar().titles.clear();
  }

 private:
  SystemTimeZone zone_{"Asia/Riyadh"};
  FakePlatform desktop_{kLateEvening};
  std::unique_ptr<StatusBarController> controller_;
};

TEST_F(StatusBarControllerTest, ShowsTheTitleAtOnceAndAgainOnTheNextPass) {
  const StatusBarController controller(desktop().barContext(), nullptr);
  EXPECT_THAT(bar().titles, ElementsAre("6 Apr"));
  loop().runPosted();
  EXPECT_THAT(bar().titles, ElementsAre("6 Apr", "6 Apr", "6 Apr"));
}

TEST_F(StatusBarControllerTest, CrossesMidnightAndZonesAtTheNextTick) {
  start();
  loop().advance(Seconds(29));
  EXPECT_TRUE(bar().titles.empty());
  loop().advance(Seconds(1));
  EXPECT_EQ(bar().title(), "7 Apr");
  const SystemTimeZone moved("Pacific/Honolulu");
  loop().advance(Seconds(30));
  EXPECT_EQ(bar().title(), "6 Apr");
}

TEST_F(StatusBarControllerTest, FollowsTheStyleAndTheCalendarOnTheNextPass) {
  start();
  auto& settings = desktop().settings();
  settings.menuBarStyle = MenuBarStyle::emoji;
  EXPECT_TRUE(bar().titles.empty());
  loop().runPosted();
  EXPECT_THAT(bar().titles, ElementsAre("\U0001F4C5"));
  settings.menuBarStyle = MenuBarStyle::date;
  settings.primaryCalendar = PrimaryCalendar::hijri;
  loop().runPosted();
  EXPECT_EQ(bar().title(), "18 Shaw.");
  settings.menuBarStyle = MenuBarStyle::nextPrayer;
  loop().runPosted();
  EXPECT_THAT(bar().title(), ::testing::MatchesRegex("Fajr [0-9]h [0-9]+m"));
}

TEST_F(StatusBarControllerTest, AnAnnouncementTakesTheTitleOverAndGivesItBack) {
  start();
  auto& active = desktop().notificationManager().activeAthanTitle;
  active.assign("Maghrib Athan");
  EXPECT_TRUE(bar().titles.empty());
  loop().runPosted();
  EXPECT_EQ(bar().title(), "\U0001F54C Maghrib Athan");
  desktop().settings().menuBarStyle = MenuBarStyle::emoji;
  loop().runPosted();
  EXPECT_EQ(bar().title(), "\U0001F54C Maghrib Athan");
  active.assign("");
  loop().runPosted();
  EXPECT_EQ(bar().title(), "\U0001F54C ");
  active.assign(std::nullopt);
  loop().runPosted();
  EXPECT_EQ(bar().title(), "\U0001F4C5");
}

TEST_F(StatusBarControllerTest, TicksAtOnceWhenTheMachineWakes) {
  start();
  auto& settings = desktop().settings();
  settings.prayerNotificationsEnabled = true;
  const auto place = settings.effectiveLocation();
  const auto schedule = PrayerTimesCalculator::calculate(
      kLateEvening + Seconds(60), place.latitude, place.longitude, place.timeZone, false, settings);
  const auto maghrib = std::find_if(schedule.begin(), schedule.end(),
                                    [](const auto& row) { return row.name == "Maghrib"; });
  ASSERT_NE(maghrib, schedule.end());
  const auto wakeAt = [this, maghrib](Seconds afterMaghrib) {
    loop().setClock(maghrib->time + afterMaghrib);
    desktop().application.resume();
    loop().runPosted();
  };
  // A minute that was slept through is not caught up; one that still runs is announced once.
  wakeAt(Seconds(60));
  EXPECT_EQ(bar().title(), "7 Apr");
  wakeAt(Seconds(59));
  EXPECT_EQ(bar().title(), "\U0001F54C Maghrib Athan");
  wakeAt(Seconds(59));
  EXPECT_EQ(desktop().notifications.shown.size(), 1U);
}

TEST_F(StatusBarControllerTest, LooksForTheMachinesPlaceAgainAtAnOpeningAndAWaking) {
  start();
  desktop().settings().locationMode = LocationMode::manual;
  desktop().location.report(AuthorizationStatus::authorizedAlways);
  desktop().location.fail();
  desktop().application.reopen();
  desktop().application.resume();
  EXPECT_EQ(desktop().location.asksAgain, 0) << "the place is chosen by hand";
  EXPECT_EQ(desktop().location.locationRequests, 1) << "when it was allowed";
  desktop().settings().locationMode = LocationMode::automatic;
  for (const bool opens : {true, false}) {
    SCOPED_TRACE(opens ? "opening" : "waking");
    desktop().location.fail();
    desktop().location.locationRequests = 0;
    if (opens) bar().action({.button = StatusItemClick::Button::right, .pointer = {}});
    opens ? desktop().application.reopen() : desktop().application.resume();
    EXPECT_EQ(desktop().location.locationRequests, 1);
  }
  EXPECT_EQ(desktop().location.asksAgain, 1) << "a waking asks the user nothing";
}

TEST_F(StatusBarControllerTest, RunsOnWithoutAButton) {
  bar().hasButton = false;
  const StatusBarController controller(desktop().barContext(), nullptr);
  loop().advance(Seconds(90));
  EXPECT_TRUE(bar().titles.empty());
}

TEST_F(StatusBarControllerTest, QuitsByItsMenus) {
  start();
  ASSERT_EQ(bar().menu.size(), 1U);
  for (const auto& quit : {bar().menu.front(), bar().hostedMenu.back()}) {
    EXPECT_EQ(quit.title, "Quit Hilalor");
    EXPECT_EQ(quit.keyEquivalent, 'q');
    quit.action();
  }
  EXPECT_EQ(desktop().application.terminations, 2);
}

TEST_F(StatusBarControllerTest, NothingIsDeliveredToOneThatIsGone) {
  auto controller = std::make_unique<StatusBarController>(desktop().barContext(), nullptr);
  controller.reset();
  EXPECT_FALSE(desktop().application.reopen);
  EXPECT_FALSE(desktop().application.resume);
  bar().titles.clear();
  desktop().settings().menuBarStyle = MenuBarStyle::emoji;
  loop().advance(Seconds(90));
  EXPECT_TRUE(bar().titles.empty());
}

}  // namespace
}  // namespace Hilalor
