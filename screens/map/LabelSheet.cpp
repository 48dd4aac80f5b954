#include "screens/map/LabelSheet.hpp"

#include <QFontMetrics>
#include <QPainter>
#include <QStaticText>
#include <algorithm>
#include <cmath>

#include "ui/TextStyle.hpp"

namespace Hilalor::Screens {

using namespace Ui;
using enum LabelKind;

namespace {

constexpr int kHaloWidth = 1;
// In logical pixels: room for twice the names that a map shows at a time.
constexpr QSize kSheet{800, 320};

constexpr int kTypeSize = 11;
constexpr double kCountryLetterSpacing = 108;  // Percent.

QFont fontOf(LabelKind kind) {
  QFont font = systemFont(kTypeSize, kind == sea ? QFont::Normal : QFont::Medium);
  font.setItalic(kind == sea);
  if (kind == country) font.setLetterSpacing(QFont::PercentageSpacing, kCountryLetterSpacing);
  return font;
}

std::pair<QColor, QColor> inkAndHalo(LabelKind kind, const MapColors& colors) {
  if (kind == sea) return {colors.sea, colors.water};
  return {kind == country ? colors.country : colors.place, colors.placeHalo};
}

}  // namespace

LabelSheet::LabelSheet() : fonts_{fontOf(place), fontOf(country), fontOf(sea)} {}

const QFont& LabelSheet::font(LabelKind kind) const {
  return fonts_[static_cast<std::size_t>(kind)];
}

void LabelSheet::paint(QPainter& painter, QPointF topLeft, LabelKind kind, const QString& text,
                       const MapColors& colors) {
  const double ratio = painter.device()->devicePixelRatioF();
  if (colors_ != &colors || ratio_ != ratio || sheet_.isNull()) {
    colors_ = &colors;
    ratio_ = ratio;
    begin();
  }
  const QRect source = entry({kind, text});
  painter.drawImage(
      QRectF(topLeft - QPointF(kHaloWidth, kHaloWidth), QSizeF(source.size()) / ratio), sheet_,
      source);
}

QRect LabelSheet::entry(const Key& key) {
  const auto found = entries_.find(key);
  if (found != entries_.end()) return found->second;
  const QFontMetrics metrics(font(key.first));
  const QSize size(metrics.horizontalAdvance(key.second), metrics.height());
  const QSizeF pixels = QSizeF(size + 2 * QSize(kHaloWidth, kHaloWidth)) * ratio_;
  const QRect place = room(
      {static_cast<int>(std::ceil(pixels.width())), static_cast<int>(std::ceil(pixels.height()))});
  draw(key, place);
  return entries_.emplace(key, place).first->second;
}

QRect LabelSheet::room(QSize size) {
  size.setWidth(std::min(size.width(), sheet_.width()));
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

void LabelSheet::draw(const Key& key, const QRect& place) {
  const auto& [kind, text] = key;
  QPainter painter(&sheet_);
  painter.setClipRect(place);
  painter.translate(place.topLeft());
  painter.scale(ratio_, ratio_);
  painter.setFont(font(kind));
  const auto [ink, halo] = inkAndHalo(kind, *colors_);
  paintHaloed(painter, QPointF(kHaloWidth, kHaloWidth), text, ink, halo);
}

void paintHaloed(QPainter& painter, QPointF topLeft, const QString& text, const QColor& ink,
                 const QColor& halo) {
  // Laid out once, drawn many times: an outline of the letters would take twenty times as long.
  QStaticText letters(text);
  letters.setTextFormat(Qt::PlainText);
  painter.setPen(halo);
  for (const int x : {-kHaloWidth, 0, kHaloWidth})
    for (const int y : {-kHaloWidth, 0, kHaloWidth})
      painter.drawStaticText(topLeft + QPointF(x, y), letters);
  painter.setPen(ink);
  painter.drawStaticText(topLeft, letters);
}

}  // namespace Hilalor::Screens
