#pragma once

namespace Hilalor {

/// A point on the screen in logical pixels, x to the right and y down from the top left of all
/// screens.
struct Point {
  double x = 0;
  double y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

/// A width and height in logical pixels.
struct Size {
  double width = 0;
  double height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

/// A rectangle on the screen: its top left corner and its size.
struct Rect {
  Point origin;
  Size size;
  friend bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace Hilalor
