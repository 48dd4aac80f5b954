#pragma once

#include <QAbstractButton>
#include <functional>

#include "ui/Animation.hpp"

namespace Hilalor::Ui {

enum class ToggleLook {
  switched,  ///< The label, and a switch at the far end of the row.
  checkbox,  ///< A box with a check mark, and the label.
  radio,     ///< A ring with a dot, and the label.
};

/// Something that is on or off, with its label at 13 pixels. Shows what it is told: a click only
/// calls `onToggle` with what the user wants.
class Toggle final : public QAbstractButton {
 public:
  Toggle(ToggleLook look, const QString& label, std::function<void(bool)> onToggle);

  /// A switch slides there once it has been seen.
  void setOn(bool isOn);
  [[nodiscard]] bool isOn() const { return isChecked(); }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

  /// The click does not change the state by itself.
  void nextCheckState() override {}

  /// A switch acts over its whole row, the others where something of them is seen.
  [[nodiscard]] bool hitButton(const QPoint& place) const override;

 private:
  [[nodiscard]] QSize markSize() const;
  [[nodiscard]] QRect markRect() const;
  [[nodiscard]] QRect labelRect() const;
  void paintSwitch(QPainter& painter, const QRectF& mark) const;
  void paintCheckbox(QPainter& painter, const QRectF& mark) const;
  void paintRadio(QPainter& painter, const QRectF& mark) const;

  ToggleLook look_;
  QString label_;
  Animation position_;  // Of a switch's knob: 0 is off, 1 on.
};

}  // namespace Hilalor::Ui
