#pragma once

#include <QFont>
#include <QImage>
#include <QRect>
#include <QString>
#include <map>

#include "screens/map/MapPainter.hpp"

class QPainter;

namespace Hilalor::Screens {

/// A text with a halo around its letters, as names on a map are written, in the painter's font.
void paintHaloed(QPainter& painter, QPointF topLeft, const QString& text, const MapColors& colors);

/// Many of them. Each is drawn once, on one sheet, and copied from there; a full sheet begins anew.
/// One large sheet leaves no holes in memory when it goes, which many small pictures do.
class LabelSheet {
 public:
  explicit LabelSheet(const QFont& font);

  [[nodiscard]] const QFont& font() const { return font_; }

  void paint(QPainter& painter, QPointF topLeft, const QString& text, const MapColors& colors);

 private:
  /// Where the text is on the sheet, in the device's pixels.
  [[nodiscard]] QRect entry(const QString& text);
  [[nodiscard]] QRect room(int width);
  void begin();
  void draw(const QString& text, const QRect& place);

  QFont font_;
  QImage sheet_;
  std::map<QString, QRect> entries_;
  QPoint next_;
  const MapColors* colors_ = nullptr;
  double ratio_ = 1;  // Of the device's pixels to logical ones.
};

}  // namespace Hilalor::Screens
