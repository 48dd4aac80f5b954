#include "ui/Button.hpp"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

#include "ui/FocusRing.hpp"
#include "ui/PlainToolTip.hpp"
#include "ui/Reach.hpp"
#include "ui/Shapes.hpp"

namespace Hilalor::Ui {
namespace {

constexpr int kLabelSpacing = 4;
constexpr QSize kBoxPadding{12, 4};
constexpr double kBoxRadius = 6;
constexpr double kPressedOpacity = 0.5;
constexpr double kDisabledOpacity = 0.7;
constexpr double kScaleWhenGone = 0.9;

}  // namespace

Button::Button(const ButtonLabel& label, std::function<void()> action, ButtonLook look)
    : look_(look), presence_(1, [this] { update(); }) {
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  if (look == ButtonLook::link) setCursor(Qt::PointingHandCursor);
  answerWithinReach();
  markFocusAround(*this, kBoxRadius);
  setLabel(label);
  connect(this, &QAbstractButton::clicked, this, [action = std::move(action)] { action(); });
}

void Button::setLabel(const ButtonLabel& label) {
  label_ = label;
  setFont(systemFont(label.style.size, label.style.weight));
  if (!label.text.isEmpty()) setAccessibleName(label.text);
  updateGeometry();
  update();
}

void Button::setHelp(const QString& help) {
  setPlainToolTip(*this, help);
  setAccessibleName(help);
}

void Button::appear(bool shown, std::chrono::milliseconds duration) {
  if (!window()->isVisible()) {
    presence_.jump(shown ? 1 : 0);
    return setVisible(shown);
  }
  if (shown) setVisible(true);
  presence_.to(shown ? 1 : 0, duration, [this, shown] { setVisible(shown); });
}

QSize Button::sizeHint() const {
  return isBoxed() ? labelSize() + 2 * kBoxPadding : labelSize();
}

bool Button::isBoxed() const {
  return look_ == ButtonLook::bordered || look_ == ButtonLook::prominent;
}

bool Button::hitButton(const QPoint& place) const {
  return reachOf(*this).contains(place);
}

int Button::side() const {
  return iconSide(byType(label_.iconSize.value_or(label_.style.size)));
}

QSize Button::labelSize() const {
  QSize size(0, 0);
  if (!label_.text.isEmpty()) size = fontMetrics().size(0, label_.text);
  if (!label_.icon) return size;
  const int spacing = label_.text.isEmpty() ? 0 : kLabelSpacing;
  return {size.width() + spacing + side(), std::max(size.height(), side())};
}

QColor Button::ink() const {
  const Colors& colors = Colors::of(*this);
  if (!isEnabled()) return weaker(colors, colors.secondary, kDisabledOpacity);
  const QColor color = look_ == ButtonLook::prominent ? colors.white : colors.*label_.style.color;
  return weaker(colors, color,
                isDown() ? label_.style.opacity * kPressedOpacity : label_.style.opacity);
}

void Button::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double presence = presence_.value();
  const double scale = kScaleWhenGone + (1 - kScaleWhenGone) * presence;
  painter.setOpacity(presence);
  painter.translate(QRectF(rect()).center());
  painter.scale(scale, scale);
  painter.translate(-QRectF(rect()).center());
  if (isBoxed()) paintBox(painter);
  paintLabel(painter);
}

void Button::paintBox(QPainter& painter) const {
  const Colors& colors = Colors::of(*this);
  const bool isProminent = look_ == ButtonLook::prominent;
  const QPainterPath box = smoothRect(rect(), kBoxRadius);
  if (!isEnabled()) {
    if (colors.contrast == Contrast::usual) return painter.fillPath(box, colors.separator);
    return strokeWithin(painter, rect(), kBoxRadius, QPen(colors.primary, 1, Qt::DashLine));
  }
  painter.fillPath(box, isProminent ? colors.accent : colors.controlBackground);
  if (!isProminent) strokeWithin(painter, rect(), kBoxRadius, QPen(colors.tertiary, 1));
}

void Button::paintLabel(QPainter& painter) const {
  const QSize size = labelSize();
  QRectF box(0, 0, size.width(), size.height());
  box.moveCenter(QRectF(rect()).center());
  if (label_.icon) {
    const QRectF place(box.left(), box.center().y() - side() / 2.0, side(), side());
    paintIcon(painter, *label_.icon, place, ink());
    box.setLeft(place.right() + kLabelSpacing);
  }
  painter.setPen(ink());
  painter.drawText(box, Qt::AlignLeft | Qt::AlignVCenter, label_.text);
}

void Button::keyPressEvent(QKeyEvent* event) {
  // Arrow keys are the screen's.
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
  if (event->key() == Qt::Key_Space) return QAbstractButton::keyPressEvent(event);
  event->ignore();
}

void Button::changeEvent(QEvent* event) {
  QAbstractButton::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange) update();
}

Button* helped(const QString& help, Button* button) {
  button->setHelp(help);
  return button;
}

}  // namespace Hilalor::Ui
