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

Stepper::Stepper(StepperRange range, std::function<QString(int)> text,
                 std::function<void(int)> onChange)
    : range_(range),
      text_(std::move(text)),
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

void Stepper::setName(const QString& name) {
  less_->setAccessibleName(name + QStringLiteral(", less"));
  more_->setAccessibleName(name + QStringLiteral(", more"));
}

void Stepper::setValue(int value) {
  value_ = value;
  const QString text = text_(value);
  label_->setText(text);
  for (Button* button : {less_, more_})
    button->setAccessibleDescription(text);
  less_->setEnabled(value > range_.lowest);
  more_->setEnabled(value < range_.highest);
}

}  // namespace Hilalor::Ui
