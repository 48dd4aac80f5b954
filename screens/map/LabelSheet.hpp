#pragma once

#include <QFont>
#include <QImage>
#include <QRect>
#include <QString>
#include <array>
#include <map>
#include <utility>

#include "screens/map/MapPainter.hpp"
#include "screens/map/MapTiles.hpp"

class QPainter;

namespace Hilalor::Screens {

/// A text with a halo around its letters, as names on a map are written, in the painter's font.
void paintHaloed(QPainter& painter, QPointF topLeft, const QString& text, const QColor& ink,
                 const QColor& halo);

/// Many of them. Each is drawn once, on one sheet, and copied from there; a full sheet begins anew.
/// One large sheet leaves no holes in memory when it goes, which many small pictures do.
class LabelSheet {
 public:
  LabelSheet();

  [[nodiscard]] const QFont& font(LabelKind kind) const;

  void paint(QPainter& painter, QPointF topLeft, LabelKind kind, const QString& text,
             const MapColors& colors);

 private:
  using Key = std::pair<LabelKind, QString>;

  /// Where the text is on the sheet, in the device's pixels.
  [[nodiscard]] QRect entry(const Key& key);
  [[nodiscard]] QRect room(QSize size);
  void begin();
  void draw(const Key& key, const QRect& place);

  std::array<QFont, 3> fonts_;
  QImage sheet_;
  std::map<Key, QRect> entries_;
  QPoint next_;
  const MapColors* colors_ = nullptr;
  double ratio_ = 1;  // Of the device's pixels to logical ones.
};

}  // namespace Hilalor::Screens
