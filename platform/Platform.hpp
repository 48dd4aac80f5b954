#pragma once

#include <filesystem>
#include <vector>

#include "platform/Application.hpp"
#include "platform/Atlas.hpp"
#include "platform/Clock.hpp"
#include "platform/DefaultsStore.hpp"
#include "platform/Geocoder.hpp"
#include "platform/LocationService.hpp"
#include "platform/LoginEntry.hpp"
#include "platform/MouseMonitor.hpp"
#include "platform/NotificationCenter.hpp"
#include "platform/RunLoop.hpp"
#include "platform/ScreenService.hpp"
#include "platform/SoundService.hpp"
#include "platform/StatusItem.hpp"
#include "platform/Updater.hpp"
#include "platform/Workspace.hpp"

namespace Hilalor {

/// The desktop as the program sees it: one of each service, all of which outlive what is built over
/// them.
struct Platform {
  Application& application;
  Clock& clock;
  RunLoop& loop;
  DefaultsStore& defaults;
  StatusBar& statusBar;
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
  /// Null where the desktop starts no programs at login.
  LoginEntry* loginEntry = nullptr;
  /// Where the beeps lie, the user's own folder first.
  std::vector<std::filesystem::path> soundFolders;
};

}  // namespace Hilalor
