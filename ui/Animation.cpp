#include "ui/Animation.hpp"

#include <QApplication>
#include <QStyle>
#include <utility>

namespace Hilalor::Ui {
namespace {

QEasingCurve easeInOut() {
  QEasingCurve curve(QEasingCurve::BezierSpline);
  curve.addCubicBezierSegment({0.42, 0}, {0.58, 1}, {1, 1});
  return curve;
}

}  // namespace

bool desktopAnimates() {
  return QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) > 0;
}

Animation::Animation(double value, std::function<void()> step)
    : value_(value), goal_(value), step_(std::move(step)) {
  QObject::connect(&animation_, &QVariantAnimation::valueChanged,
                   [this](const QVariant& now) { set(now.toDouble()); });
  QObject::connect(&animation_, &QVariantAnimation::finished, [this] {
    if (const auto arrived = std::exchange(arrived_, nullptr)) arrived();
  });
}

void Animation::jump(double goal) {
  animation_.stop();
  arrived_ = nullptr;
  goal_ = goal;
  set(goal);
}

void Animation::to(double goal, std::chrono::milliseconds duration, std::function<void()> arrived) {
  if (goal == goal_) return;
  goal_ = goal;
  arrived_ = std::move(arrived);
  animation_.stop();
  // An animation without length would not report that it finished.
  const bool moves = desktopAnimates() && duration.count() > 0;
  animation_.setDuration(moves ? static_cast<int>(duration.count()) : 1);
  animation_.setEasingCurve(easeInOut());
  animation_.setStartValue(moves ? value_ : goal);
  animation_.setEndValue(goal);
  animation_.start();
}

void Animation::set(double value) {
  value_ = value;
  step_();
}

}  // namespace Hilalor::Ui
