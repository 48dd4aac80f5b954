#include "ui/Columns.hpp"

#include <QFontMetricsF>
#include <QPainter>
#include <QStringList>
#include <algorithm>
#include <utility>

namespace Hilalor::Ui {
namespace {

double widest(const QFont& font, const QStringList& texts) {
  const QFontMetricsF metrics(font);
  double width = 0;
  for (const QString& text : texts)
    width = std::max(width, metrics.horizontalAdvance(text));
  return width;
}

double digitWidth(const QFont& font) {
  return widest(font, QStringLiteral("0123456789").split(QString(), Qt::SkipEmptyParts));
}

/// The digits and what is between them, and the rest.
std::pair<QString, QString> parts(const QString& time) {
  qsizetype length = time.size();
  while (length > 0 && !time.at(length - 1).isDigit())
    --length;
  return {time.first(length), time.sliced(length)};
}

double restWidth(const QFont& font, const QString& rest) {
  if (rest.isEmpty()) return 0;
  return widest(font, {rest, QStringLiteral(" AM"), QStringLiteral(" PM")});
}

}  // namespace

double widthInColumns(const QFont& font, const QString& time) {
  const auto [figures, rest] = parts(time);
  const double digit = digitWidth(font);
  double width = restWidth(font, rest);
  for (const QChar character : figures)
    width += character.isDigit() ? digit : widest(font, {character});
  return width;
}

void drawInColumns(QPainter& painter, const QRectF& rect, const QString& time) {
  const QFont font = painter.font();
  const auto [figures, rest] = parts(time);
  const double digit = digitWidth(font);
  QRectF cell(rect);
  cell.setLeft(rect.right() - widthInColumns(font, time));
  for (const QChar character : figures) {
    cell.setWidth(character.isDigit() ? digit : widest(font, {character}));
    painter.drawText(cell, Qt::AlignCenter | Qt::TextDontClip, character);
    cell.moveLeft(cell.right());
  }
  painter.drawText(rect, Qt::AlignRight | Qt::AlignVCenter, rest);
}

}  // namespace Hilalor::Ui
