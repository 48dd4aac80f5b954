#pragma once

#include <memory>
#include <vector>

#include "app/AppSettings.hpp"
#include "app/PrayerNotificationManager.hpp"
#include "platform/Platform.hpp"
#include "platform/RunLoop.hpp"
#include "platform/Signal.hpp"
#include "platform/StatusItem.hpp"
#include "platform/Updater.hpp"

namespace Hilalor {

/// The program's presence in the bar: the item, its text, and what a click on it does. Its
/// 30-second timer keeps the text right and asks the alert monitor whether a prayer is due. Main
/// thread.
class StatusBarController {
 public:
  /// Puts the item with its first text into the bar. `updater` is null in a build without updates.
  explicit StatusBarController(Updater* updater);

 private:
  void subscribe();
  void tick();
  void updateTitle();

  Platform& platform_;
  AppSettings& settings_;
  PrayerNotificationManager& alerts_;
  std::unique_ptr<StatusItem> statusItem_;
  Updater* updater_;
  std::unique_ptr<Timer> timer_;
  std::vector<Subscription> subscriptions_;
};

}  // namespace Hilalor
