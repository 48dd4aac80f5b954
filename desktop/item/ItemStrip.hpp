#pragma once

#include <QObject>
#include <memory>
#include <optional>

#include "desktop/item/FrontWindow.hpp"
#include "desktop/item/ItemFace.hpp"
#include "desktop/item/ItemPresence.hpp"
#include "platform/DefaultsStore.hpp"

namespace Hilalor::Desktop {

/// The item as a strip of our own at the top of the main screen, for desktops whose bar shows no
/// items or that have none. It stands below such a bar, at the right or where the user has dragged
/// it; it makes room for the buttons of a maximised window and for all of a full-screen one.
class ItemStrip : public QObject, public ItemPresence {
 public:
  /// All must outlive the strip.
  ItemStrip(const ItemContent& content, const ItemPainter& painter, DefaultsStore& defaults);

  void titleChanged() override;
  void lookAround() override;
  [[nodiscard]] std::optional<Rect> place() const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Drag {
    /// Of the pointer, where it took the strip.
    double within = 0;
    /// A hand moves a little during a click.
    bool hasMoved = false;
  };

  void put();
  void watchScreen();
  void follow(double pointer);
  [[nodiscard]] double share() const;
  [[nodiscard]] double besideButtons(double x, double y, double width) const;

  DefaultsStore& defaults_;
  ItemFace face_;
  std::unique_ptr<FrontWindowWatch> windows_ = FrontWindowWatch::open();
  Subscription windowsChanged_;
  std::optional<Drag> drag_;
  std::optional<double> draggedShare_;
};

}  // namespace Hilalor::Desktop
