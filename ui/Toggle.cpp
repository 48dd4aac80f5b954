#include "ui/Toggle.hpp"

#include <QPainter>
#include <algorithm>

#include "ui/FocusRing.hpp"
#include "ui/Icon.hpp"
#include "ui/Shapes.hpp"
#include "ui/TextStyle.hpp"

namespace Hilalor::Ui {
namespace {

constexpr int kTypeSize = 13;
constexpr int kSpacing = 8;
constexpr QSize kSwitchSize{32, 18};
constexpr QSize kCheckboxSize{16, 16};
constexpr QSize kRadioSize{16, 16};
constexpr double kKnobInset = 2;
constexpr double kCheckboxRadius = 4;
constexpr double kRingWidth = 1.5;
constexpr double kRingAtRestOpacity = 0.5;
constexpr double kRadioDot = 8;
constexpr double kFocusRadius = 4;
constexpr std::chrono::milliseconds kSlide{150};

}  // namespace

Toggle::Toggle(ToggleLook look, const QString& label, std::function<void(bool)> onToggle)
    : look_(look), label_(label), position_(0, [this] { update(); }) {
  // Not as its text, of which an ampersand would make a letter the shortcut.
  setAccessibleName(label);
  setFont(systemFont(kTypeSize));
  setCheckable(true);
  setFocusPolicy(Qt::TabFocus);
  markFocusAround(*this, kFocusRadius);
  const bool isSwitch = look == ToggleLook::switched;
  setSizePolicy(isSwitch ? QSizePolicy::Expanding : QSizePolicy::Preferred, QSizePolicy::Preferred);
  connect(this, &QAbstractButton::clicked, this,
          [this, onToggle = std::move(onToggle)] { onToggle(!isChecked()); });
}

void Toggle::setOn(bool isOn) {
  // One of several to a screen reader; Qt's own rule would let none of them be off.
  setAutoExclusive(false);
  setChecked(isOn);
  setAutoExclusive(look_ == ToggleLook::radio);
  position_.to(isOn ? 1 : 0, isVisible() ? kSlide : std::chrono::milliseconds(0));
}

QSize Toggle::markSize() const {
  switch (look_) {
    case ToggleLook::switched:
      return kSwitchSize;
    case ToggleLook::checkbox:
      return kCheckboxSize;
    case ToggleLook::radio:
      return kRadioSize;
  }
  return {};
}

QRect Toggle::markRect() const {
  QRect mark({0, 0}, markSize());
  mark.moveCenter(rect().center());
  look_ == ToggleLook::switched ? mark.moveRight(rect().right()) : mark.moveLeft(0);
  return mark;
}

QRect Toggle::labelRect() const {
  const int taken = markSize().width() + kSpacing;
  return look_ == ToggleLook::switched ? rect().adjusted(0, 0, -taken, 0)
                                       : rect().adjusted(taken, 0, 0, 0);
}

QSize Toggle::sizeHint() const {
  const QSize label = fontMetrics().size(0, label_);
  const QSize mark = markSize();
  return {mark.width() + kSpacing + label.width(), std::max(label.height(), mark.height())};
}

int Toggle::heightForWidth(int width) const {
  const QRect room(0, 0, width - markSize().width() - kSpacing, QWIDGETSIZE_MAX);
  const int label = fontMetrics().boundingRect(room, Qt::TextWordWrap, label_).height();
  return std::max(label, markSize().height());
}

bool Toggle::hitButton(const QPoint& place) const {
  const bool isSeen = look_ == ToggleLook::switched || place.x() < sizeHint().width();
  return isSeen && QAbstractButton::hitButton(place);
}

void Toggle::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (!isEnabled()) painter.setOpacity(kRingAtRestOpacity);
  painter.setPen(Colors::of(*this).primary);
  painter.drawText(labelRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, label_);
  painter.setPen(Qt::NoPen);
  const QRectF mark = markRect();
  switch (look_) {
    case ToggleLook::switched:
      paintSwitch(painter, mark);
      break;
    case ToggleLook::checkbox:
      paintCheckbox(painter, mark);
      break;
    case ToggleLook::radio:
      paintRadio(painter, mark);
      break;
  }
}

void Toggle::paintSwitch(QPainter& painter, const QRectF& mark) const {
  const Colors& colors = Colors::of(*this);
  const double radius = mark.height() / 2;
  const double share = position_.value();
  const bool isHigh = colors.contrast == Contrast::high;
  // In high contrast an empty one is an edge, and its knob has the edge's ink.
  painter.setBrush(isHigh ? colors.windowBackground : colors.tertiary);
  painter.drawRoundedRect(mark, radius, radius);
  painter.setBrush(faded(colors.accent, share));
  painter.drawRoundedRect(mark, radius, radius);
  if (isHigh) strokeWithin(painter, mark, radius, QPen(colors.primary, 1));
  painter.setPen(Qt::NoPen);
  const double side = mark.height() - 2 * kKnobInset;
  const double x = mark.left() + kKnobInset + share * (mark.width() - mark.height());
  painter.setBrush(isHigh && share < 0.5 ? colors.primary : colors.white);
  painter.drawEllipse(QRectF(x, mark.top() + kKnobInset, side, side));
}

void Toggle::paintCheckbox(QPainter& painter, const QRectF& mark) const {
  const Colors& colors = Colors::of(*this);
  if (!isChecked()) {
    painter.fillPath(smoothRect(mark, kCheckboxRadius), colors.textBackground);
    return strokeWithin(painter, mark, kCheckboxRadius, QPen(colors.tertiary, 1));
  }
  painter.fillPath(smoothRect(mark, kCheckboxRadius), colors.accent);
  paintIcon(painter, Icon::checkMark, mark, colors.white);
}

void Toggle::paintRadio(QPainter& painter, const QRectF& mark) const {
  const Colors& colors = Colors::of(*this);
  const double inset = kRingWidth / 2;
  painter.setBrush(Qt::NoBrush);
  const QColor ring =
      isChecked() ? colors.accent : weaker(colors, colors.secondary, kRingAtRestOpacity);
  painter.setPen(QPen(ring, kRingWidth));
  painter.drawEllipse(mark.adjusted(inset, inset, -inset, -inset));
  if (!isChecked()) return;
  painter.setPen(Qt::NoPen);
  painter.setBrush(colors.accent);
  painter.drawEllipse(mark.center(), kRadioDot / 2, kRadioDot / 2);
}

}  // namespace Hilalor::Ui
