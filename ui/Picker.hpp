#pragma once

#include <QMenu>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

#include "ui/Button.hpp"

namespace Hilalor {

/// A text in the accent colour that opens a menu of options under it.
class MenuPicker final : public QWidget {
 public:
  /// The options are asked for whenever the menu opens. Choosing calls `onSelect` with the option's
  /// place among them.
  MenuPicker(std::function<QStringList()> options, std::function<void(int)> onSelect);

  /// What is chosen now; -1 for none of the options.
  void setCurrent(int index, const QString& label);

  /// What a screen reader calls the picker.
  void setHelp(const QString& help);

 private:
  void openMenu();

  std::function<QStringList()> options_;
  std::function<void(int)> onSelect_;
  int current_ = -1;
  Button* button_;
  std::unique_ptr<QMenu> menu_;
};

/// Options side by side in one box, as wide as there is room, one of them chosen.
class SegmentedPicker final : public QWidget {
 public:
  SegmentedPicker(const QStringList& options, std::function<void(int)> onSelect);

  void setCurrent(int index);

 private:
  std::vector<QAbstractButton*> segments_;
};

}  // namespace Hilalor
