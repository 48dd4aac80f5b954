#pragma once

#include <optional>
#include <vector>

#include "platform/Geometry.hpp"
#include "platform/ScreenService.hpp"

namespace Hilalor {

/// Where a panel of that size goes: centred under the item on the item's screen, against its bar,
/// and within the part of the screen that is free, of which the right edge wins over the left. A
/// panel stands on a bar at the bottom and beside one at a side. For an item whose place is not
/// known it is the end of the bar. No result without a screen.
[[nodiscard]] std::optional<Point> panelOrigin(Size panel, const std::optional<Rect>& item,
                                               const std::vector<Screen>& screens);

/// The greatest height at which a panel there is seen whole. No result without a screen.
[[nodiscard]] std::optional<double> greatestPanelHeight(const std::optional<Rect>& item,
                                                        const std::vector<Screen>& screens);

/// Whether there may be a bar at the point: outside what is free of its screen, or near the edge,
/// where bars that hide themselves come up.
[[nodiscard]] bool mayBeOnBar(Point point, const std::vector<Screen>& screens);

/// Whether the point lies in the rectangle, made larger by that distance on every side. The right
/// and the lower edge are its neighbour's.
[[nodiscard]] bool isWithin(double distance, const Rect& rect, Point point);

}  // namespace Hilalor
