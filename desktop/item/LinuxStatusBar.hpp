#pragma once

#include <filesystem>
#include <memory>

#include "desktop/item/GlyphPictures.hpp"
#include "desktop/item/ItemPainter.hpp"
#include "desktop/item/NotifierHost.hpp"
#include "desktop/item/ShellExtension.hpp"
#include "desktop/session/SessionBus.hpp"
#include "platform/DefaultsStore.hpp"
#include "platform/RunLoop.hpp"
#include "platform/StatusItem.hpp"

namespace Hilalor::Desktop {

class SystemTray;

/// The bars of Linux desktops: our own extension of GNOME Shell, a window in an X11 system tray, an
/// item on D-Bus, or, where there is neither, a strip of our own at the edge of the screen. Needs
/// the Qt application.
class LinuxStatusBar : public StatusBar {
 public:
  /// `pictures` is the folder of the item's pictures. The others must outlive the bar.
  LinuxStatusBar(RunLoop& loop, SessionBus& bus, DefaultsStore& defaults,
                 const std::filesystem::path& pictures);

  ~LinuxStatusBar() override;

  /// One at a time: a tray or a D-Bus name has room for one. The bar must outlive its item.
  [[nodiscard]] std::unique_ptr<StatusItem> makeItem() override;

 private:
  RunLoop& loop_;
  DefaultsStore& defaults_;
  GlyphPictures pictures_;
  ItemPainter painter_;
  ShellExtension shell_;
  std::unique_ptr<SystemTray> tray_;
  NotifierHost notifier_;
};

}  // namespace Hilalor::Desktop
