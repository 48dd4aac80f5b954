#include "app/PanelPlacement.hpp"

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

double panelTop(double height, const Rect& item, const Screen& screen) {
  const Rect& visible = screen.visibleFrame;
  const Point at = middle(item);
  const double lowest = bottom(visible) - height;
  const bool isBesideVisible = at.x < visible.origin.x || at.x > right(visible);
  if (isBesideVisible && at.y > visible.origin.y && at.y < bottom(visible)) {
    return std::max(visible.origin.y, std::min(lowest, at.y - height / 2));
  }
  // A bar that hides itself leaves the whole screen free; the panel keeps clear of the item then.
  const bool isBelow = at.y > middle(screen.frame).y;
  const double top = isBelow ? std::min(lowest, item.origin.y - height) : bottom(item);
  return std::max(visible.origin.y, top);
}

}  // namespace

std::optional<Point> panelOrigin(Size panel, const std::optional<Rect>& item,
                                 const std::vector<Screen>& screens) {
  if (screens.empty()) return std::nullopt;
  const Screen& screen = item ? screenOf(*item, screens) : screens.front();
  const Rect place = item ? *item : barEnd(screen);
  const Rect& visible = screen.visibleFrame;
  const double leftmost = std::max(visible.origin.x, middle(place).x - panel.width / 2);
  return Point{std::min(right(visible) - panel.width, leftmost),
               panelTop(panel.height, place, screen)};
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
