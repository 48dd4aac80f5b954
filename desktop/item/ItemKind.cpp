#include "desktop/item/ItemKind.hpp"

namespace Hilalor::Desktop {

ItemKind bestKind(const BarHosts& hosts) {
  using Notifier = BarHosts::Notifier;
  if (hosts.shellExtension) return ItemKind::shell;
  if (hosts.prefersNotifier) {
    if (hosts.notifier == Notifier::present) return ItemKind::notifier;
    if (hosts.notifier == Notifier::unknown) return ItemKind::none;
  }
  if (hosts.systemTray) return ItemKind::trayWindow;
  if (hosts.notifier == Notifier::present) return ItemKind::notifier;
  return hosts.stripIsDue ? ItemKind::strip : ItemKind::none;
}

}  // namespace Hilalor::Desktop
