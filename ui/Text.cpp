#include "ui/Text.hpp"

#include <QEvent>
#include <QGuiApplication>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/Columns.hpp"
#include "ui/PlainToolTip.hpp"

namespace Hilalor::Ui {

double typeScale() {
  constexpr double kUsualPoints = 11;
  constexpr double kMost = 2;
  return std::clamp(QGuiApplication::font().pointSizeF() / kUsualPoints, 1.0, kMost);
}

int byType(int length) {
  return static_cast<int>(std::lround(length * typeScale()));
}

QSize byType(QSize size) {
  return {byType(size.width()), byType(size.height())};
}

QFont systemFont(int size, QFont::Weight weight) {
  QFont font = QGuiApplication::font();
  font.setPixelSize(byType(size));
  font.setWeight(weight);
  return font;
}

Text::Text(const TextStyle& style, const QString& text)
    : style_(style), presence_(1, [this] { update(); }) {
  setTextFormat(Qt::PlainText);
  setFont(systemFont(style.size, style.weight));
  setText(text);
}

void Text::setStyle(const TextStyle& style) {
  if (style == style_) return;
  if (style.size != style_.size || style.weight != style_.weight) {
    setFont(systemFont(style.size, style.weight));
  }
  style_ = style;
  update();
}

void Text::fadeTo(double opacity, std::chrono::milliseconds duration) {
  isLeaving_ = opacity == 0;
  presence_.to(opacity, duration);
}

QSize Text::sizeHint() const {
  if (style_.figures == Figures::columns)
    return {static_cast<int>(std::ceil(widthInColumns(font(), text()))), fontMetrics().height()};
  return fontMetrics().size(0, text());
}

QSize Text::minimumSizeHint() const {
  return {0, fontMetrics().height()};
}

int Text::heightForWidth(int width) const {
  const bool isOneLine =
      style_.overflow == Overflow::ellipsis || style_.figures == Figures::columns;
  if (isOneLine) return fontMetrics().height();
  const QRect room(0, 0, width, QWIDGETSIZE_MAX);
  return fontMetrics().boundingRect(room, Qt::TextWordWrap, text()).height();
}

bool Text::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && style_.overflow == Overflow::ellipsis) {
    const bool isCut = sizeHint().width() > width();
    setPlainToolTip(*this, isCut ? text() : QString());
  }
  return QLabel::event(event);
}

void Text::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const Colors& colors = Colors::of(*this);
  const QColor ink = weaker(colors, colors.*style_.color, style_.opacity);
  painter.setPen(faded(ink, presence_.value()));
  if (!isLeaving_) lastSeen_ = text();
  if (style_.figures == Figures::columns) return drawInColumns(painter, rect(), lastSeen_);
  const bool wraps = style_.overflow == Overflow::wrap;
  painter.drawText(
      rect(), static_cast<int>(alignment()) | (wraps ? Qt::TextWordWrap : 0),
      wraps ? lastSeen_ : fontMetrics().elidedText(lastSeen_, Qt::ElideRight, width()));
}

}  // namespace Hilalor::Ui
