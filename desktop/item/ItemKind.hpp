#pragma once

namespace Hilalor::Desktop {

/// The ways of being in the bar.
enum class ItemKind { none, shell, trayWindow, notifier, strip };

/// The bars that there are. `notifier` is not answered until the bus has been asked.
struct BarHosts {
  enum class Notifier { unknown, absent, present };

  /// Our own extension of GNOME Shell.
  bool shellExtension = false;
  bool systemTray = false;
  Notifier notifier = Notifier::unknown;
  /// The desktop's own bar does better by an item on D-Bus than by a window in its tray.
  bool prefersNotifier = false;
  /// Nothing else has come for a while or is to be expected, and windows can be placed.
  bool stripIsDue = false;
};

/// The best way for the hosts there are.
[[nodiscard]] ItemKind bestKind(const BarHosts& hosts);

}  // namespace Hilalor::Desktop
