#include "rules/bar/ItemClicks.hpp"

#include <gtest/gtest.h>

#include <string>

namespace Hilalor {
namespace {

constexpr Rect kTheItem{{600, 0}, {80, 24}};
constexpr Point kOnTheItem{640, 12};
constexpr Point kFarOff{300, 400};

using Button = StatusItemClick::Button;

/// Deeds in one letter each: a press on the (i)tem, (n)ear where it is clicked, or (e)lsewhere, a
/// release (r), a dismissal by the (d)esktop or by E(s)cape, a click (c), one of which the pointer
/// is not told (k), a right click (R), a wait of a tenth of a second (.) or half a second (-), a
/// clock set back (<).
std::string play(const char* deeds, const std::optional<Rect>& item) {
  ItemClicks clicks;
  bool isOpen = false;
  Date now{1000};
  std::string log;
  const auto click = [&](Button button, std::optional<Point> pointer) {
    const auto answer = clicks.click({.button = button, .pointer = pointer}, item, isOpen, now);
    if (answer != ItemClicks::Answer::nothing) isOpen = answer == ItemClicks::Answer::open;
    log += isOpen ? 'O' : '-';
  };
  const auto press = [&](Point place) {
    if (isOpen && clicks.press(place, item)) isOpen = false;
  };
  for (const char* deed = deeds; *deed != '\0'; ++deed) {
    if (*deed == 'i') press(kOnTheItem);
    if (*deed == 'n') press({kOnTheItem.x + 7, kOnTheItem.y - 7});
    if (*deed == 'e') press(kFarOff);
    if (*deed == 'r') static_cast<void>(clicks.release(now));
    if (*deed == 'd' || *deed == 's') {
      isOpen = false;
      clicks.dismissal(*deed == 'd' ? Dismissal::byDesktop : Dismissal::byEscape, now);
    }
    if (*deed == 'c') click(Button::left, kOnTheItem);
    if (*deed == 'k') click(Button::left, std::nullopt);
    if (*deed == 'R') click(Button::right, kOnTheItem);
    if (*deed == '.') now = now + Seconds(0.1);
    if (*deed == '-') now = now + Seconds(0.5);
    if (*deed == '<') now = now - Seconds(3600);
  }
  return log;
}

TEST(ItemClicks, ThePressThatClosedIsNotTheOneThatOpens) {
  const struct {
    const char* what;
    const char* deeds;
    bool isPlaceKnown;
    const char* states;  // After each click: open or not.
  } cases[] = {
      {"clicks take turns", "ccc", true, "O-O"},
      {"a right click closes only", "cRRc", true, "O--O"},
      {"a press on the item is its click's", "circ", true, "O-"},
      {"a press elsewhere closes", "cerc", true, "OO"},
      {"a press where the item may be closes, and its click opens not", "cir.cc", false, "O-O"},
      {"a few pixels before it", "cnr.c", false, "O-"},
      {"held down for long", "ci----r.c", false, "O-"},
      {"whose click never came", "cir-c", false, "OO"},
      {"never released", "ci----cc", false, "O-O"},
      {"a press elsewhere has no click here", "cerc", false, "OO"},
      {"a right click ends the wait too", "ciRc", false, "O-O"},
      {"a keyboard is not that press", "cirk", false, "OO"},
      {"closed by the desktop, at a place that nobody knows", "cd....k", false, "O-"},
      {"long ago", "cd--k", false, "OO"},
      {"with a known place", "cd.c", true, "O-"},
      {"closed by Escape", "csc", true, "OO"},
      {"a clock set back makes no wait longer", "cir<c", false, "OO"},
  };
  for (const auto& [what, deeds, isPlaceKnown, states] : cases) {
    EXPECT_EQ(play(deeds, isPlaceKnown ? std::optional(kTheItem) : std::nullopt), states) << what;
  }
}

TEST(ItemClicks, KnowsThePointerOnTheItemFromAKeyboard) {
  const std::vector<Screen> screens{
      {.frame = {{0, 0}, {1280, 800}}, .visibleFrame = {{0, 24}, {1280, 776}}}};
  const struct {
    std::optional<Point> pointer;
    std::optional<Rect> item;
    std::optional<Point> expected;
  } cases[] = {{kOnTheItem, kTheItem, kOnTheItem},
               {kOnTheItem, {}, kOnTheItem},
               {kFarOff, {}, {}},  // Not on a bar.
               {{}, kTheItem, {}}};
  for (const auto& [pointer, item, expected] : cases)
    EXPECT_EQ(pointerOnItem({.button = Button::left, .pointer = pointer}, item, screens), expected);
  EXPECT_EQ(itemOrPointer(kTheItem, kFarOff), kTheItem);
  EXPECT_EQ(itemOrPointer({}, kFarOff), (Rect{kFarOff, {}}));
}

}  // namespace
}  // namespace Hilalor
