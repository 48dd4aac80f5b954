#pragma once

#include <QPoint>
#include <QString>
#include <map>
#include <vector>

class QPainter;

namespace Hilalor::Desktop {

/// Letters drawn by hand, pixel by pixel, for squares so small that those of a font become a blur.
class PixelLetters {
 public:
  /// For squares from 22 pixels: figures of nine pixels, capitals of eight, a pixel lower.
  [[nodiscard]] static const PixelLetters& bold();

  /// For squares from 16 pixels: figures and capitals of six pixels.
  [[nodiscard]] static const PixelLetters& light();

  /// Figures of five pixels, to stand beside the bold ones.
  [[nodiscard]] static const PixelLetters& raised();

  /// Whether there are all letters of the text; only a few were drawn.
  [[nodiscard]] bool has(const QString& text) const;

  /// In pixels; of a text that there are letters for.
  [[nodiscard]] int width(const QString& text) const;

  /// Draws such a text in the pen's colour. `corner` is the top left of a figure there.
  void draw(QPainter& painter, QPoint corner, const QString& text) const;

 private:
  struct Letter {
    int width = 0;
    std::vector<QPoint> ink;
  };

  explicit PixelLetters(const char* sheet);
  void read(const QString& strip);

  std::map<QChar, Letter> letters_;
};

}  // namespace Hilalor::Desktop
