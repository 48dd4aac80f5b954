#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <optional>

#include "desktop/item/GlyphPictures.hpp"
#include "desktop/item/SquarePainter.hpp"

class QPainter;

namespace Hilalor::Desktop {

/// As the eye has it (luma of ITU-R BT.601), from 0, black, to 255, white.
[[nodiscard]] double lightness(const QColor& colour);

/// Of an opaque picture.
[[nodiscard]] QColor meanColour(const QImage& picture);

/// The colours of a text on a bar.
struct Ink {
  QColor text;
  /// Drawn around the letters where what is behind them is unknown.
  std::optional<QColor> halo;

  /// Dark on a light ground, light on a dark one.
  [[nodiscard]] static Ink on(const QColor& ground);

  friend bool operator==(const Ink&, const Ink&) = default;
};

/// Draws the item's title: whole as a bar's text, or as a square. All lengths are in the pixels of
/// the painter given.
class ItemPainter {
 public:
  /// The pictures must outlive the painter.
  explicit ItemPainter(GlyphPictures& pictures) : pictures_(pictures), squares_(pictures) {}

  /// What the whole title takes on a bar of that height, with a little air at both ends.
  [[nodiscard]] int naturalWidth(const ItemTitle& title, int barHeight) const;

  /// The whole title in one line in the middle of the rectangle.
  void drawTitle(QPainter& painter, const QRect& rect, const ItemTitle& title,
                 const Ink& ink) const;

  /// The title as a square in the middle of the rectangle, readable on any bar.
  void drawCompact(QPainter& painter, const QRect& rect, const ItemTitle& title) const;

  /// The square as a picture with a transparent ground.
  [[nodiscard]] QImage compactPicture(const ItemTitle& title, int side) const;

  /// The whole title as a picture for a bar of ordinary height, readable on any; `scale` is how
  /// many pixels the bar's screen has for one.
  [[nodiscard]] QImage widePicture(const ItemTitle& title, int scale) const;

 private:
  GlyphPictures& pictures_;
  SquarePainter squares_;
};

}  // namespace Hilalor::Desktop
