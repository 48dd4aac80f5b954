#pragma once

#include <QVariantAnimation>
#include <chrono>
#include <functional>

namespace Hilalor::Ui {

/// Whether the desktop wants movement.
[[nodiscard]] bool desktopAnimates();

/// A number that moves to its goal with an ease-in-out curve, at once where the desktop wants no
/// animations. Costs nothing at rest.
class Animation {
 public:
  /// Calls `step` whenever the value has changed.
  Animation(double value, std::function<void()> step);

  [[nodiscard]] double value() const { return value_; }

  /// Is there at once.
  void jump(double goal);

  /// Begins where the value is now. `arrived` is called at the goal, unless another goal is set
  /// before.
  void to(double goal, std::chrono::milliseconds duration, std::function<void()> arrived = {});

 private:
  void set(double value);

  double value_;
  double goal_;
  std::function<void()> step_;
  std::function<void()> arrived_;
  QVariantAnimation animation_;
};

}  // namespace Hilalor::Ui
