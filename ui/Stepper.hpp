#pragma once

#include <QWidget>
#include <functional>

#include "ui/Button.hpp"
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

/// The number with its unit, and a button for each direction.
class Stepper final : public QWidget {
 public:
  /// `unit` follows the number as it is (" sec").
  Stepper(StepperRange range, const QString& unit, std::function<void(int)> onChange);

  void setValue(int value);

 private:
  [[nodiscard]] Button* stepButton(const QString& sign, const QString& help, int direction);

  StepperRange range_;
  QString unit_;
  std::function<void(int)> onChange_;
  int value_ = 0;
  Text* label_;
  Button* less_;
  Button* more_;
};

}  // namespace Hilalor::Ui
