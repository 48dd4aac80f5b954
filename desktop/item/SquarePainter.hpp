#pragma once

#include <QImage>

#include "desktop/item/GlyphPictures.hpp"

class QPainter;

namespace Hilalor::Desktop {

/// Draws what a square can say of the title, readable on any bar.
class SquarePainter {
 public:
  /// The pictures must outlive the painter.
  explicit SquarePainter(GlyphPictures& pictures) : pictures_(pictures) {}

  /// A picture of `side` by `side` of the screen's own pixels, its ground transparent.
  [[nodiscard]] QImage picture(const ItemTitle& title, int side) const;

 private:
  GlyphPictures& pictures_;
};

}  // namespace Hilalor::Desktop
