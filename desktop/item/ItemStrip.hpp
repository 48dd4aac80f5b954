#pragma once

#include <QObject>

#include "desktop/item/ItemFace.hpp"
#include "desktop/item/ItemPresence.hpp"

namespace Hilalor {

/// The item as a strip of our own at the top right of the main screen, for desktops whose bar shows
/// no items or that have none. It stands below such a bar.
class ItemStrip : public QObject, public ItemPresence {
 public:
  ItemStrip(const ItemContent& content, const ItemPainter& painter);

  void titleChanged() override;
  void lookAround() override;
  [[nodiscard]] std::optional<Rect> place() const override { return face_.place(); }

 private:
  void put();
  void watchScreen();

  ItemFace face_;
};

}  // namespace Hilalor
