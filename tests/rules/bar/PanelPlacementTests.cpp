#include "rules/bar/PanelPlacement.hpp"

#include <gtest/gtest.h>

namespace Hilalor {
namespace {

constexpr Size kPanel{260, 500};
constexpr Rect kLeftFrame{{0, 0}, {1280, 800}};
constexpr Rect kRightFrame{{1280, 0}, {1920, 1080}};
constexpr Screen kBarAtTop{kLeftFrame, {{0, 24}, {1280, 776}}};
constexpr Screen kBarAtBottom{kLeftFrame, {{0, 0}, {1280, 770}}};
constexpr Screen kBarAtLeft{kLeftFrame, {{40, 0}, {1240, 800}}};
constexpr Screen kNoBar{kLeftFrame, kLeftFrame};
constexpr Screen kSecond{kRightFrame, {{1280, 30}, {1920, 1050}}};

struct Case {
  const char* what;
  std::optional<Rect> item;
  std::vector<Screen> screens;
  Point origin;
};

TEST(PanelPlacement, StandsAgainstTheBarUnderTheItem) {
  const Case cases[] = {
      {"centred", Rect{{600, 0}, {80, 24}}, {kBarAtTop}, {510, 24}},
      {"at the right end", Rect{{1200, 0}, {80, 24}}, {kBarAtTop}, {1020, 24}},
      {"at the left end", Rect{{10, 0}, {80, 24}}, {kBarAtTop}, {0, 24}},
      {"only the pointer is known", Rect{{640, 11}, {}}, {kBarAtTop}, {510, 24}},
      {"bar at the bottom", Rect{{600, 770}, {80, 30}}, {kBarAtBottom}, {510, 270}},
      {"bar at the left", Rect{{0, 380}, {40, 40}}, {kBarAtLeft}, {40, 150}},
      {"bar at the left, item at its top", Rect{{0, 10}, {40, 20}}, {kBarAtLeft}, {40, 0}},
      {"bar at the bottom of a low screen",
       Rect{{600, 370}, {80, 30}},
       {{{{0, 0}, {1280, 400}}, {{0, 0}, {1280, 370}}}},
       {510, 0}},
      {"a bar that hides itself", Rect{{600, 0}, {80, 24}}, {kNoBar}, {510, 24}},
      {"the same at the bottom", Rect{{600, 776}, {80, 24}}, {kNoBar}, {510, 276}},
      {"on the second screen", Rect{{1300, 4}, {60, 22}}, {kBarAtTop, kSecond}, {1280, 30}},
      {"on the second screen's first pixel",
       Rect{{1280, 11}, {}},
       {kBarAtTop, kSecond},
       {1280, 30}},
      {"off every screen", Rect{{600, -90}, {80, 24}}, {kBarAtTop, kSecond}, {510, 24}},
      {"place unknown", std::nullopt, {kBarAtTop, kSecond}, {1020, 24}},
      {"place unknown, bar at the bottom", std::nullopt, {kBarAtBottom}, {1020, 270}},
  };
  for (const auto& [what, item, screens, origin] : cases) {
    SCOPED_TRACE(what);
    const auto found = panelOrigin(kPanel, item, screens);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->x, origin.x);
    EXPECT_EQ(found->y, origin.y);
  }
}

TEST(PanelPlacement, KeepsTheRightEdgeWhereThePanelIsWiderThanTheScreen) {
  const auto origin = panelOrigin({1500, 300}, Rect{{600, 0}, {80, 24}}, {kBarAtTop});
  EXPECT_EQ(origin->x, -220);
}

TEST(PanelPlacement, IsNoHigherThanWhatIsFreeBesideTheBarAndTheItem) {
  const std::pair<Case, double> cases[] = {
      {{"bar at the top", Rect{{600, 0}, {80, 24}}, {kBarAtTop}, {}}, 776},
      {{"bar at the bottom", Rect{{600, 770}, {80, 30}}, {kBarAtBottom}, {}}, 770},
      {{"bar at the left", Rect{{0, 380}, {40, 40}}, {kBarAtLeft}, {}}, 800},
      {{"a bar that hides itself", Rect{{600, 0}, {80, 24}}, {kNoBar}, {}}, 776},
      {{"the same at the bottom", Rect{{600, 776}, {80, 24}}, {kNoBar}, {}}, 776},
      {{"on the second screen", Rect{{1300, 4}, {60, 22}}, {kBarAtTop, kSecond}, {}}, 1050},
      {{"place unknown", std::nullopt, {kBarAtTop, kSecond}, {}}, 776},
  };
  for (const auto& [at, height] : cases)
    EXPECT_EQ(greatestPanelHeight(at.item, at.screens), height) << at.what;
}

TEST(PanelPlacement, KnowsWhereABarMayBe) {
  EXPECT_TRUE(mayBeOnBar({640, 12}, {kBarAtTop}));
  EXPECT_TRUE(mayBeOnBar({640, 790}, {kBarAtTop})) << "one that hides itself";
  EXPECT_FALSE(mayBeOnBar({640, 400}, {kBarAtTop}));
  EXPECT_FALSE(mayBeOnBar({1900, 400}, {kBarAtTop, kSecond}));
}

TEST(PanelPlacement, HasNoPlaceWithoutAScreen) {
  EXPECT_FALSE(panelOrigin(kPanel, Rect{}, {}));
  EXPECT_FALSE(greatestPanelHeight(Rect{}, {}));
}

}  // namespace
}  // namespace Hilalor
