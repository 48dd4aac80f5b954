#include "ui/Stepper.hpp"

#include <QHBoxLayout>
#include <algorithm>

namespace Hilalor::Ui {
namespace {

constexpr int kTypeSize = 13;
constexpr int kSpacing = 4;

}  // namespace

int StepperRange::next(int value, int direction) const {
  return std::clamp(value + direction * step, lowest, highest);
}

Stepper::Stepper(StepperRange range, const QString& unit, std::function<void(int)> onChange)
    : range_(range),
      unit_(unit),
      onChange_(std::move(onChange)),
      label_(new Text({.size = kTypeSize})),
      less_(stepButton(QStringLiteral("\u2212"), QStringLiteral("Less"), -1)),
      more_(stepButton(QStringLiteral("+"), QStringLiteral("More"), 1)) {
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(kSpacing);
  layout->addWidget(label_);
  layout->addWidget(less_);
  layout->addWidget(more_);
}

Button* Stepper::stepButton(const QString& sign, const QString& help, int direction) {
  const ButtonLabel label{.text = sign, .style = {.size = kTypeSize}};
  auto* button = new Button(
      label,
      [this, direction] {
        const int next = range_.next(value_, direction);
        if (next != value_) onChange_(next);
      },
      ButtonLook::bordered);
  button->setAutoRepeat(true);
  return helped(help, button);
}

void Stepper::setValue(int value) {
  value_ = value;
  label_->setText(QString::number(value) + unit_);
  less_->setEnabled(value > range_.lowest);
  more_->setEnabled(value < range_.highest);
}

}  // namespace Hilalor::Ui
