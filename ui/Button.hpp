#pragma once

#include <QAbstractButton>
#include <functional>
#include <optional>

#include "ui/Animation.hpp"
#include "ui/Icon.hpp"
#include "ui/TextStyle.hpp"

namespace Hilalor::Ui {

/// What a button shows: an icon, a text, or both side by side.
struct ButtonLabel {
  std::optional<Icon> icon = std::nullopt;
  QString text = {};
  TextStyle style = {};
  std::optional<int> iconSize = std::nullopt;  ///< As of the type beside it; the style's if absent.
};

/// How a button looks around its label.
enum class ButtonLook {
  plain,      ///< The label alone.
  link,       ///< The label alone, with a hand for a pointer.
  bordered,   ///< In a box.
  prominent,  ///< In a box of the accent colour, the label white.
};

/// A button that never takes the keyboard from another program when it is clicked.
class Button final : public QAbstractButton {
 public:
  Button(const ButtonLabel& label, std::function<void()> action,
         ButtonLook look = ButtonLook::plain);

  void setLabel(const ButtonLabel& label);

  /// What the pointer resting on the button and a screen reader are told.
  void setHelp(const QString& help);

  /// Comes and goes by growing from nine tenths of its size and fading; hidden when it has gone. At
  /// once while its window is not shown.
  void appear(bool shown, std::chrono::milliseconds duration);

  [[nodiscard]] QSize sizeHint() const override;

  /// Whether it is drawn in a box.
  [[nodiscard]] bool isBoxed() const;

 protected:
  /// Also a place beside a small button is on it.
  [[nodiscard]] bool hitButton(const QPoint& place) const override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  [[nodiscard]] QSize labelSize() const;
  [[nodiscard]] int side() const;
  [[nodiscard]] QColor ink() const;
  void paintBox(QPainter& painter) const;
  void paintLabel(QPainter& painter) const;

  ButtonLabel label_;
  ButtonLook look_;
  Animation presence_;
};

/// The button with that help.
[[nodiscard]] Button* helped(const QString& help, Button* button);

}  // namespace Hilalor::Ui
