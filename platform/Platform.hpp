#pragma once

#include <filesystem>
#include <vector>

#include "platform/Application.hpp"
#include "platform/Atlas.hpp"
#include "platform/Clock.hpp"
#include "platform/DefaultsStore.hpp"
#include "platform/Geocoder.hpp"
#include "platform/LocationService.hpp"
#include "platform/MouseMonitor.hpp"
#include "platform/NotificationCenter.hpp"
#include "platform/RunLoop.hpp"
#include "platform/ScreenService.hpp"
#include "platform/SoundService.hpp"
#include "platform/StatusItem.hpp"
#include "platform/Surfaces.hpp"
#include "platform/Updater.hpp"
#include "platform/Workspace.hpp"

namespace Hilalor {

/// The desktop as the program sees it: one of each service. The services outlive the program's
/// shared objects, which are built over the installed platform on their first use.
struct Platform {
  Application& application;
  Clock& clock;
  RunLoop& loop;
  DefaultsStore& defaults;
  StatusBar& statusBar;
  Surfaces& surfaces;
  ScreenService& screens;
  MouseMonitor& mouse;
  LocationService& location;
  Geocoder& geocoder;
  Atlas& atlas;
  NotificationCenter& notifications;
  SoundService& sounds;
  /// Null where nothing of other programs can be opened.
  Workspace* workspace = nullptr;
  /// Null in a build that was given no place to look for releases.
  Updater* updater = nullptr;
  /// Where the beeps lie, the user's own folder first.
  std::vector<std::filesystem::path> soundFolders;

  /// The platform of this process. One must have been installed.
  [[nodiscard]] static Platform& current();

  /// Puts a platform in place, or takes it away with null. Shared objects that exist keep the one
  /// they were built over: a test that installs another resets them.
  static void install(Platform* platform);
};

}  // namespace Hilalor
