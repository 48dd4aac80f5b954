#pragma once

#include <memory>
#include <optional>

#include "desktop/item/GlyphPictures.hpp"
#include "desktop/item/ItemKind.hpp"
#include "desktop/item/ItemPainter.hpp"
#include "desktop/item/ItemPresence.hpp"
#include "desktop/item/NotifierHost.hpp"
#include "desktop/item/ShellExtension.hpp"
#include "desktop/item/SystemTray.hpp"
#include "platform/DefaultsStore.hpp"
#include "platform/RunLoop.hpp"
#include "platform/StatusItem.hpp"

namespace Hilalor::Desktop {

/// The item, shown in the best way for the hosts there are, and anew whenever they come or go.
class LinuxStatusItem : public StatusItem, public StatusButton {
 public:
  /// `tray` is null where the program is not on X11. All must outlive the item.
  LinuxStatusItem(RunLoop& loop, ShellExtension& shell, SystemTray* tray, NotifierHost& notifier,
                  const ItemPainter& painter, const GlyphPictures& pictures,
                  DefaultsStore& defaults);
  ~LinuxStatusItem() override;

  [[nodiscard]] StatusButton* button() override { return this; }
  void setUnseenHandler(std::function<void()> handler) override;
  [[nodiscard]] std::optional<Rect> place() const override;
  [[nodiscard]] std::optional<std::string> advice() const override;
  void setTitle(const ItemTitle& title) override;
  void setAction(std::function<void(const StatusItemClick&)> action) override;
  void setContextMenu(Menu menu) override;
  void setHostedMenu(Menu menu) override;
  void setAppearance(Appearance appearance) override { content_.appearance = appearance; }

 private:
  [[nodiscard]] BarHosts hosts() const;
  [[nodiscard]] bool isAlone() const;
  void shellChanged();
  void trayChanged();
  void notifierChanged();
  void choose();
  void waitForBar();
  void show(ItemKind kind);

  RunLoop& loop_;
  ShellExtension& shell_;
  SystemTray* tray_;
  NotifierHost& notifier_;
  const ItemPainter& painter_;
  const GlyphPictures& pictures_;
  DefaultsStore& defaults_;

  ItemContent content_;
  std::function<void()> unseen_;
  ItemKind kind_ = ItemKind::none;
  std::unique_ptr<ItemPresence> presence_;
  bool trayRefuses_ = false;
  bool stripIsDue_ = false;
  std::unique_ptr<Timer> firstChoice_;
  std::unique_ptr<Timer> waitForBar_;
  Subscription shellChanged_;
  Subscription trayChanged_;
  Subscription notifierChanged_;
};

}  // namespace Hilalor::Desktop
