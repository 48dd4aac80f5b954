#pragma once

#include <QWidget>
#include <functional>

#include "ui/Button.hpp"
#include "ui/Spoken.hpp"
#include "ui/Text.hpp"

namespace Hilalor::Ui {

/// A number that goes up and down by steps, and never out of its range.
struct StepperRange {
  int lowest = 0;
  int highest = 0;
  int step = 1;

  /// The value a step from there in that direction (1 or -1).
  [[nodiscard]] int next(int value, int direction) const;
};

/// The number as a text, and a button for each direction. One stop of the keyboard, whose arrows
/// step; to a screen reader one number that can be set.
class Stepper final : public QWidget, public SpokenPart {
 public:
  /// `text` writes a number ("10 sec").
  Stepper(StepperRange range, std::function<QString(int)> text, std::function<void(int)> onChange);

  /// What the number is, for those who cannot see what stands beside it.
  void setName(const QString& name);

  void setValue(int value);

  [[nodiscard]] QAccessibleInterface* makeSpoken() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  class Spoken;

  [[nodiscard]] Button* stepButton(const QString& sign, const QString& help, int direction);
  void step(int direction);
  void ask(int value);

  StepperRange range_;
  std::function<QString(int)> text_;
  std::function<void(int)> onChange_;
  int value_ = 0;
  Text* label_;
  Button* less_;
  Button* more_;
};

}  // namespace Hilalor::Ui
