#include "screens/map/LabelSheet.hpp"

#include <QFontMetrics>
#include <QPainter>
#include <QStaticText>
#include <algorithm>
#include <cmath>

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr int kHaloWidth = 1;
// In logical pixels: room for twice the names that a map shows at a time.
constexpr QSize kSheet{800, 320};

}  // namespace

LabelSheet::LabelSheet(const QFont& font) : font_(font) {}

void LabelSheet::paint(QPainter& painter, QPointF topLeft, const QString& text,
                       const MapColors& colors) {
  const double ratio = painter.device()->devicePixelRatioF();
  if (colors_ != &colors || ratio_ != ratio || sheet_.isNull()) {
    colors_ = &colors;
    ratio_ = ratio;
    begin();
  }
  const QRect source = entry(text);
  painter.drawImage(
      QRectF(topLeft - QPointF(kHaloWidth, kHaloWidth), QSizeF(source.size()) / ratio), sheet_,
      source);
}

QRect LabelSheet::entry(const QString& text) {
  const auto found = entries_.find(text);
  if (found != entries_.end()) return found->second;
  const int width = QFontMetrics(font_).horizontalAdvance(text) + 2 * kHaloWidth;
  const QRect place = room(static_cast<int>(std::ceil(width * ratio_)));
  draw(text, place);
  return entries_.emplace(text, place).first->second;
}

QRect LabelSheet::room(int width) {
  const QFontMetrics metrics(font_);
  const QSize size(std::min(width, sheet_.width()),
                   static_cast<int>(std::ceil((metrics.height() + 2 * kHaloWidth) * ratio_)));
  if (next_.x() + size.width() > sheet_.width()) next_ = {0, next_.y() + size.height()};
  if (next_.y() + size.height() > sheet_.height()) begin();
  const QRect room(next_, size);
  next_.rx() += size.width();
  return room;
}

void LabelSheet::begin() {
  entries_.clear();
  next_ = {};
  sheet_ = QImage((QSizeF(kSheet) * ratio_).toSize(), QImage::Format_ARGB32_Premultiplied);
  sheet_.fill(Qt::transparent);
}

void LabelSheet::draw(const QString& text, const QRect& place) {
  QPainter painter(&sheet_);
  painter.setClipRect(place);
  painter.translate(place.topLeft());
  painter.scale(ratio_, ratio_);
  painter.setFont(font_);
  paintHaloed(painter, QPointF(kHaloWidth, kHaloWidth), text, *colors_);
}

void paintHaloed(QPainter& painter, QPointF topLeft, const QString& text, const MapColors& colors) {
  // Laid out once, drawn many times: an outline of the letters would take twenty times as long.
  QStaticText letters(text);
  letters.setTextFormat(Qt::PlainText);
  painter.setPen(colors.placeHalo);
  for (const int x : {-kHaloWidth, 0, kHaloWidth})
    for (const int y : {-kHaloWidth, 0, kHaloWidth})
      painter.drawStaticText(topLeft + QPointF(x, y), letters);
  painter.setPen(colors.place);
  painter.drawStaticText(topLeft, letters);
}

}  // namespace Hilalor::Screens
