#include "ui/Text.hpp"

#include <QGuiApplication>
#include <QPainter>

namespace Hilalor::Ui {

QFont systemFont(int size, QFont::Weight weight) {
  QFont font = QGuiApplication::font();
  font.setPixelSize(size);
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
  presence_.to(opacity, duration);
}

QSize Text::sizeHint() const {
  return fontMetrics().size(0, text());
}

QSize Text::minimumSizeHint() const {
  return {0, fontMetrics().height()};
}

int Text::heightForWidth(int width) const {
  const QRect room(0, 0, width, QWIDGETSIZE_MAX);
  return fontMetrics().boundingRect(room, Qt::TextWordWrap, text()).height();
}

void Text::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(faded(Colors::of(*this).*style_.color, style_.opacity * presence_.value()));
  painter.drawText(rect(), static_cast<int>(alignment()) | Qt::TextWordWrap, text());
}

}  // namespace Hilalor::Ui
