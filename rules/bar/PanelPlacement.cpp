#include "rules/bar/PanelPlacement.hpp"

#include <algorithm>

namespace Hilalor {
namespace {

constexpr double kThickestBar = 64;

double right(const Rect& rect) {
  return rect.origin.x + rect.size.width;
}

double bottom(const Rect& rect) {
  return rect.origin.y + rect.size.height;
}

Point middle(const Rect& rect) {
  return {rect.origin.x + rect.size.width / 2, rect.origin.y + rect.size.height / 2};
}

const Screen& screenOf(const Rect& item, const std::vector<Screen>& screens) {
  const auto found = std::ranges::find_if(
      screens, [&](const Screen& screen) { return isWithin(0, screen.frame, middle(item)); });
  return found == screens.end() ? screens.front() : *found;
}

/// The end of the bar: where most desktops keep their items.
Rect barEnd(const Screen& screen) {
  const bool isAtBottom = bottom(screen.visibleFrame) < bottom(screen.frame) &&
                          screen.visibleFrame.origin.y == screen.frame.origin.y;
  return {{right(screen.frame), isAtBottom ? bottom(screen.frame) : screen.frame.origin.y}, {}};
}

enum class Bar { above, below, beside };

Bar barOf(const Rect& item, const Screen& screen) {
  const Rect& visible = screen.visibleFrame;
  const Point at = middle(item);
  const bool isBesideVisible = at.x < visible.origin.x || at.x > right(visible);
  if (isBesideVisible && at.y > visible.origin.y && at.y < bottom(visible)) return Bar::beside;
  return at.y > middle(screen.frame).y ? Bar::below : Bar::above;
}

struct Span {
  double top;
  double bottom;
};

/// What is free for the panel from top to bottom. A bar that hides itself leaves the whole screen
/// free; the panel keeps clear of the item then.
Span room(const Rect& item, const Screen& screen) {
  Span room{screen.visibleFrame.origin.y, bottom(screen.visibleFrame)};
  switch (barOf(item, screen)) {
    case Bar::above:
      room.top = std::max(room.top, bottom(item));
      break;
    case Bar::below:
      room.bottom = std::min(room.bottom, item.origin.y);
      break;
    case Bar::beside:
      break;
  }
  return room;
}

double panelTop(double height, const Rect& item, const Screen& screen) {
  const auto [top, bottom] = room(item, screen);
  switch (barOf(item, screen)) {
    case Bar::above:
      return top;
    case Bar::below:
      return std::max(top, bottom - height);
    case Bar::beside:
      break;
  }
  return std::max(top, std::min(bottom - height, middle(item).y - height / 2));
}

/// The item's place, or the end of the bar where that is not known, and the screen it is on.
struct Anchor {
  Rect place;
  Screen screen;
};

Anchor anchor(const std::optional<Rect>& item, const std::vector<Screen>& screens) {
  const Screen& screen = item ? screenOf(*item, screens) : screens.front();
  return {item ? *item : barEnd(screen), screen};
}

}  // namespace

std::optional<Point> panelOrigin(Size panel, const std::optional<Rect>& item,
                                 const std::vector<Screen>& screens) {
  if (screens.empty()) return std::nullopt;
  const auto [place, screen] = anchor(item, screens);
  const Rect& visible = screen.visibleFrame;
  const double leftmost = std::max(visible.origin.x, middle(place).x - panel.width / 2);
  return Point{std::min(right(visible) - panel.width, leftmost),
               panelTop(panel.height, place, screen)};
}

std::optional<double> greatestPanelHeight(const std::optional<Rect>& item,
                                          const std::vector<Screen>& screens) {
  if (screens.empty()) return std::nullopt;
  const auto [place, screen] = anchor(item, screens);
  const auto [top, bottom] = room(place, screen);
  return bottom - top;
}

bool mayBeOnBar(Point point, const std::vector<Screen>& screens) {
  return std::ranges::none_of(screens, [&](const Screen& screen) {
    return isWithin(0, screen.visibleFrame, point) && isWithin(-kThickestBar, screen.frame, point);
  });
}

bool isWithin(double distance, const Rect& rect, Point point) {
  return point.x >= rect.origin.x - distance && point.x < right(rect) + distance &&
         point.y >= rect.origin.y - distance && point.y < bottom(rect) + distance;
}

}  // namespace Hilalor
