#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "rules/bar/StatusBarController.hpp"
#include "tests/fakes/FakePlatform.hpp"

namespace Hilalor {
namespace {

constexpr Rect kItem{{600, 0}, {80, 24}};
constexpr Point kOnItem{640, 12};
constexpr Point kElsewhere{300, 400};

class StatusBarPanelTest : public testing::Test {
 protected:
  StatusBarPanelTest() {
    desktop.statusBar.place = kItem;
    loop().runPosted();
  }

  [[nodiscard]] VirtualLoop& loop() { return desktop.loop; }
  [[nodiscard]] FakeSurfaces::FakePanel* panel() { return desktop.surfaces.panel; }

  void click() {
    desktop.statusBar.action({.button = StatusItemClick::Button::left, .pointer = kOnItem});
  }

  void rightClick() {
    desktop.statusBar.action({.button = StatusItemClick::Button::right, .pointer = kOnItem});
  }

  FakePlatform desktop;
  StatusBarController controller{desktop.barContext(), nullptr};
};

TEST_F(StatusBarPanelTest, ALeftClickOpensThePanelUnderTheItemAndTheNextClosesIt) {
  for (const bool canWatch : {true, false}) {
    desktop.mouse.isAllowed = canWatch;
    click();
    ASSERT_TRUE(panel());
    EXPECT_EQ(panel()->frame, (Rect{{510, 24}, {260, 500}}));
    EXPECT_TRUE(panel()->isInFront);
    EXPECT_EQ(panel()->keyboard, KeyboardAtOpening::leftWhereItIs);
    EXPECT_EQ(desktop.mouse.isWatched(), canWatch);
    click();
    EXPECT_FALSE(panel());
    EXPECT_FALSE(desktop.mouse.isWatched());
  }
}

TEST_F(StatusBarPanelTest, ThePressThatClosedItIsWatchedUntilItsReleaseAndDoesNotReopenIt) {
  desktop.statusBar.place.reset();
  click();
  desktop.mouse.press(kOnItem);
  EXPECT_FALSE(panel());
  loop().advance(Seconds(5));  // Held down for a while.
  EXPECT_TRUE(desktop.mouse.isWatched());
  desktop.mouse.release();
  loop().advance(Seconds(0.1));
  EXPECT_FALSE(desktop.mouse.isWatched());
  click();
  EXPECT_FALSE(panel());
  click();
  ASSERT_TRUE(panel());
  EXPECT_TRUE(desktop.mouse.isWatched());
  panel()->events.onDismiss(Dismissal::byDesktop);
  click();
  EXPECT_FALSE(panel());
  click();
  rightClick();
  EXPECT_FALSE(panel());
}

TEST_F(StatusBarPanelTest, TakesTheKeyboardWhenItIsOpenedByKeyboard) {
  desktop.statusBar.action({.button = StatusItemClick::Button::left, .pointer = {}});
  ASSERT_TRUE(panel());
  EXPECT_EQ(panel()->keyboard, KeyboardAtOpening::taken);
  click();

  desktop.statusBar.place.reset();
  desktop.statusBar.action({.button = StatusItemClick::Button::left, .pointer = kElsewhere});
  ASSERT_TRUE(panel());
  EXPECT_EQ(panel()->frame, (Rect{{1020, 24}, {260, 500}})) << "the pointer is not on a bar";
  EXPECT_EQ(panel()->keyboard, KeyboardAtOpening::taken);
}

TEST_F(StatusBarPanelTest, ASecondStartOpensItUnderTheItemAndSoDoesAnUnseenItem) {
  desktop.statusBar.unseen();
  ASSERT_TRUE(panel());
  EXPECT_EQ(panel()->frame, (Rect{{510, 24}, {260, 500}}));
  EXPECT_EQ(panel()->keyboard, KeyboardAtOpening::taken);
  panel()->keyboard = KeyboardAtOpening::leftWhereItIs;
  desktop.application.reopen();
  ASSERT_TRUE(panel()) << "one that is open stays";
  EXPECT_EQ(panel()->keyboard, KeyboardAtOpening::taken);
}

TEST_F(StatusBarPanelTest, TheBarsOwnMenuLeadsToPanelAndSettings) {
  desktop.statusBar.place.reset();
  const auto& lines = desktop.statusBar.hostedMenu;
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_EQ(lines[0].title, "Open Calendar");
  EXPECT_EQ(lines[1].title, "Settings...");
  for (int opening = 1; opening <= 2; ++opening) {
    rightClick();
    lines[0].action();
    EXPECT_FALSE(panel()) << "the menu is still there";
    loop().advance(Seconds(1));
    ASSERT_TRUE(panel());
    EXPECT_EQ(panel()->frame, (Rect{{510, 24}, {260, 500}})) << "where the menu was asked for";
    EXPECT_EQ(panel()->keyboard, KeyboardAtOpening::taken);
  }
  lines[1].action();
  EXPECT_TRUE(desktop.surfaces.settings);
}

TEST_F(StatusBarPanelTest, ShowsTheItemsAdviceUntilItIsPutAway) {
  desktop.statusBar.advice = "Ask your bar.";
  for (int opening = 1; opening <= 2; ++opening) {
    click();
    ASSERT_TRUE(panel()->advice);
    EXPECT_EQ(panel()->advice->text, "Ask your bar.");
    if (opening == 2) panel()->advice->onPutAway();
    click();
  }
  click();
  EXPECT_FALSE(panel()->advice);
}

TEST_F(StatusBarPanelTest, KnowsWhereTheItemHasMovedSinceTheClick) {
  click();
  desktop.statusBar.place = Rect{{560, 0}, {40, 24}};
  panel()->events.onSizeChange({260, 500});
  EXPECT_EQ(panel()->frame, (Rect{{450, 24}, {260, 500}}));
  desktop.mouse.press(kOnItem);
  EXPECT_FALSE(panel()) << "a neighbour is there now";
}

TEST_F(StatusBarPanelTest, FollowsTheSizeOfItsScreenWithItsTopEdgeAtTheBar) {
  click();
  panel()->events.onSizeChange({300, 640});
  EXPECT_EQ(panel()->frame, (Rect{{490, 24}, {300, 640}}));
  // The screen has changed.
  desktop.screens.screens = {
      {.frame = {{0, 0}, {1024, 600}}, .visibleFrame = {{0, 24}, {1024, 576}}}};
  panel()->events.onSizeChange({300, 640});
  EXPECT_EQ(panel()->greatestHeight, 576);
  EXPECT_EQ(panel()->frame, (Rect{{490, 24}, {300, 576}}));
}

TEST_F(StatusBarPanelTest, IsBuiltAgainWhenTheShownSectionsChange) {
  desktop.settings().showPrayerTimes = false;
  loop().advance(Seconds(1));
  EXPECT_EQ(desktop.surfaces.panelsMade, 0);

  click();
  desktop.surfaces.panelSize = {260, 300};
  desktop.settings().showPrayerTimes = true;
  EXPECT_TRUE(panel());
  loop().runPosted();
  EXPECT_FALSE(panel());
  loop().advance(Seconds(0.05));
  ASSERT_TRUE(panel());
  EXPECT_EQ(panel()->frame, (Rect{{510, 24}, {260, 300}}));
}

TEST_F(StatusBarPanelTest, AClickDuringTheRebuildStandsInForIt) {
  click();
  desktop.settings().showCalendar = false;
  loop().runPosted();
  click();
  click();
  loop().advance(Seconds(1));
  EXPECT_FALSE(panel());
}

TEST_F(StatusBarPanelTest, PanelAndSettingsFollowTheTheme) {
  desktop.settings().theme = AppTheme::light;
  click();
  EXPECT_EQ(panel()->appearance, Appearance::light);
  controller.openSettings();
  for (const auto& [theme, shown] :
       {std::pair(AppTheme::dark, Appearance::dark), {AppTheme::system, Appearance::system}}) {
    desktop.settings().theme = theme;
    loop().runPosted();
    EXPECT_EQ(panel()->appearance, shown);
    EXPECT_EQ(desktop.statusBar.appearance, shown);
    EXPECT_EQ(desktop.surfaces.settings->appearance, shown);
  }
}

TEST_F(StatusBarPanelTest, TheSettingsWindowIsOneUntilItIsClosed) {
  click();
  panel()->events.onOpenSettings();
  panel()->events.onOpenSettings();
  EXPECT_EQ(desktop.surfaces.windowsMade, 1);
  EXPECT_EQ(desktop.surfaces.settings->timesInFront, 2);
  EXPECT_TRUE(panel());
  desktop.surfaces.settings->onWillClose();
  EXPECT_FALSE(desktop.surfaces.settings);
  controller.openSettings();
  EXPECT_EQ(desktop.surfaces.windowsMade, 2);
}

}  // namespace
}  // namespace Hilalor
