#pragma once

#include <functional>
#include <memory>

#include "platform/DefaultsStore.hpp"
#include "rules/bar/BarContext.hpp"
#include "rules/bar/StatusBarController.hpp"

namespace Hilalor {

/// Follows the application's life: builds the item in the bar when launching has finished. Nothing
/// is left to do at the end, since every change was stored when it was made.
class AppDelegate {
 public:
  /// Starts looking for updates, where the build has a place to look.
  explicit AppDelegate(const BarContext& context);

  /// Whether the first run has asked for the user's location.
  [[nodiscard]] static bool didRequestLocation(const DefaultsStore& store);

  /// Launching has finished: the item appears, and the first run asks for the user's location.
  /// Where the store cannot be read yet, whether this is the first run is decided when it can.
  void applicationDidFinishLaunching();

 private:
  void requestLocationOnFirstRun();

  BarContext context_;
  std::unique_ptr<StatusBarController> statusBarController_;
  Subscription cameIn_;
};

}  // namespace Hilalor
