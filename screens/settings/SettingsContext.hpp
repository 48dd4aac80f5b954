#pragma once

#include "platform/SoundService.hpp"
#include "platform/Workspace.hpp"
#include "rules/prayer/PrayerNotificationManager.hpp"
#include "rules/settings/AppSettings.hpp"
#include "rules/settings/LocationManager.hpp"
#include "screens/map/MapContext.hpp"

namespace Hilalor::Screens {

/// What the settings window works with.
struct SettingsContext {
  AppSettings& settings;
  LocationManager& locationManager;
  PrayerNotificationManager& notificationManager;
  SoundService& sounds;
  /// Null where nothing of other programs can be opened.
  Workspace* workspace;
  MapContext map;
};

}  // namespace Hilalor::Screens
