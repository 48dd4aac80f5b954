#pragma once

#include <QMenu>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "ui/Button.hpp"

namespace Hilalor::Ui {

/// What a picker offers.
struct PickerMenu {
  QStringList options;
  std::optional<int> current;  ///< The option with the check mark, by its place.
};

/// A text in the accent colour that opens a menu of options under it, by a click anywhere in its
/// row.
class GreenPickerButton final : public QWidget {
 public:
  /// The menu is built whenever it opens. Choosing calls `onSelect` with the option's place in it.
  GreenPickerButton(std::function<PickerMenu()> menuBuilder, std::function<void(int)> onSelect);

  /// What is chosen now.
  void setText(const QString& text);

  /// What a screen reader says of the picker.
  void setHelp(const QString& help);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void showMenu();

  std::function<PickerMenu()> menuBuilder_;
  std::function<void(int)> onSelect_;
  Button* button_;
  std::unique_ptr<QMenu> menu_;
};

/// Options side by side in one box, as wide as there is room, one of them chosen.
class SegmentedPicker final : public QWidget {
 public:
  SegmentedPicker(const QStringList& options, const std::function<void(int)>& onSelect);

  void setCurrent(int index);

 private:
  std::vector<QAbstractButton*> segments_;
};

}  // namespace Hilalor::Ui
