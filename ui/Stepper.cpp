#include "ui/Stepper.hpp"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <algorithm>

#include "ui/FocusRing.hpp"

namespace Hilalor::Ui {
namespace {

constexpr int kTypeSize = 13;
constexpr int kSpacing = 4;
constexpr double kFocusRadius = 6;

}  // namespace

int StepperRange::next(int value, int direction) const {
  return std::clamp(value + direction * step, lowest, highest);
}

/// A number in a range, which can be set and stepped.
class Stepper::Spoken final : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit Spoken(Stepper& stepper)
      : QAccessibleWidget(&stepper, QAccessible::SpinBox), stepper_(stepper) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  [[nodiscard]] int childCount() const override { return 0; }
  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? stepper_.label_->text() : QAccessibleWidget::text(kind);
  }

  [[nodiscard]] QVariant currentValue() const override { return stepper_.value_; }
  void setCurrentValue(const QVariant& value) override { stepper_.ask(value.toInt()); }
  [[nodiscard]] QVariant maximumValue() const override { return stepper_.range_.highest; }
  [[nodiscard]] QVariant minimumValue() const override { return stepper_.range_.lowest; }
  [[nodiscard]] QVariant minimumStepSize() const override { return stepper_.range_.step; }

  [[nodiscard]] QStringList actionNames() const override {
    return QStringList{increaseAction(), decreaseAction()} + QAccessibleWidget::actionNames();
  }
  void doAction(const QString& action) override {
    if (action == increaseAction()) return stepper_.step(1);
    if (action == decreaseAction()) return stepper_.step(-1);
    QAccessibleWidget::doAction(action);
  }

 private:
  Stepper& stepper_;
};

Stepper::Stepper(StepperRange range, std::function<QString(int)> text,
                 std::function<void(int)> onChange)
    : range_(range),
      text_(std::move(text)),
      onChange_(std::move(onChange)),
      label_(new Text({.size = kTypeSize})),
      less_(stepButton(QStringLiteral("\u2212"), QStringLiteral("Less"), -1)),
      more_(stepButton(QStringLiteral("+"), QStringLiteral("More"), 1)) {
  setFocusPolicy(Qt::TabFocus);
  markFocusAround(*this, kFocusRadius);
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
      label, [this, direction] { step(direction); }, ButtonLook::bordered);
  button->setAutoRepeat(true);
  button->setFocusPolicy(Qt::NoFocus);
  return helped(help, button);
}

void Stepper::setName(const QString& name) {
  setAccessibleName(name);
  less_->setAccessibleName(name + QStringLiteral(", less"));
  more_->setAccessibleName(name + QStringLiteral(", more"));
}

void Stepper::setValue(int value) {
  value_ = value;
  const QString text = text_(value);
  less_->setEnabled(value > range_.lowest);
  more_->setEnabled(value < range_.highest);
  if (text == label_->text()) return;
  label_->setText(text);
  // With its unit, which the number by itself has not.
  setAccessibleDescription(text);
  QAccessibleValueChangeEvent changed(this, value);
  QAccessible::updateAccessibility(&changed);
}

void Stepper::step(int direction) {
  ask(range_.next(value_, direction));
}

void Stepper::ask(int value) {
  value = std::clamp(value, range_.lowest, range_.highest);
  if (value != value_) onChange_(value);
}

void Stepper::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Right:
    case Qt::Key_Plus:
      return step(1);
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Minus:
      return step(-1);
    default:
      QWidget::keyPressEvent(event);
  }
}

QAccessibleInterface* Stepper::makeSpoken() {
  return new Spoken(*this);
}

}  // namespace Hilalor::Ui
