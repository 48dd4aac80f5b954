#pragma once

#include "platform/Clock.hpp"
#include "platform/LoginEntry.hpp"
#include "platform/SoundService.hpp"
#include "platform/Workspace.hpp"
#include "rules/prayer/PrayerNotificationManager.hpp"
#include "rules/settings/AppSettings.hpp"
#include "rules/settings/LocationManager.hpp"
#include "screens/map/MapContext.hpp"

namespace Hilalor::Screens {

/// What the settings window works with.
struct SettingsContext {
  const Clock& clock;
  AppSettings& settings;
  LocationManager& locationManager;
  PrayerNotificationManager& notificationManager;
  SoundService& sounds;
  /// Null where nothing of other programs can be opened.
  Workspace* workspace;
  /// Null where the desktop starts no programs at login.
  LoginEntry* loginEntry;
  MapContext map;
};

}  // namespace Hilalor::Screens
