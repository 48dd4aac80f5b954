#pragma once

#include <QRect>
#include <QString>
#include <memory>
#include <optional>

#include "platform/Panel.hpp"
#include "platform/StatusItem.hpp"

class QMenu;

namespace Hilalor::Desktop {

/// The item's context menu where we open it ourselves.
class ItemMenu {
 public:
  ItemMenu();
  ~ItemMenu();

  /// Opens at the item, on the side away from the bar's edge of the screen; at the pointer where
  /// the item's place is not known. Logical pixels. Light or dark as the program's windows.
  void open(const Menu& menu, const std::optional<QRect>& item, Appearance appearance);

  /// The title with the sign before the letter that chooses the line. A sign of the title's own is
  /// doubled, so that it is shown and marks nothing.
  [[nodiscard]] static QString marked(const MenuItem& item, QChar sign);

 private:
  std::unique_ptr<QMenu> menu_;
};

}  // namespace Hilalor::Desktop
