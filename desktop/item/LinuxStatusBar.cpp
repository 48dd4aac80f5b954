#include "desktop/item/LinuxStatusBar.hpp"

#include "desktop/item/LinuxStatusItem.hpp"
#include "desktop/item/SystemTray.hpp"

namespace Hilalor::Desktop {

LinuxStatusBar::LinuxStatusBar(RunLoop& loop, SessionBus& bus, DefaultsStore& defaults,
                               const std::filesystem::path& pictures)
    : loop_(loop),
      defaults_(defaults),
      pictures_(pictures),
      painter_(pictures_),
      shell_(bus),
      tray_(SystemTray::ofDisplay()),
      notifier_(bus) {}

LinuxStatusBar::~LinuxStatusBar() = default;

std::unique_ptr<StatusItem> LinuxStatusBar::makeItem() {
  return std::make_unique<LinuxStatusItem>(loop_, shell_, tray_.get(), notifier_, painter_,
                                           pictures_, defaults_);
}

}  // namespace Hilalor::Desktop
