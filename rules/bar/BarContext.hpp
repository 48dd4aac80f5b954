#pragma once

#include "platform/Platform.hpp"
#include "platform/Surfaces.hpp"
#include "rules/prayer/PrayerNotificationManager.hpp"
#include "rules/settings/AppSettings.hpp"
#include "rules/settings/LocationManager.hpp"

namespace Hilalor {

/// What the item in the bar works with.
struct BarContext {
  const Platform& platform;
  Surfaces& surfaces;
  AppSettings& settings;
  LocationManager& locationManager;
  PrayerNotificationManager& notificationManager;
};

}  // namespace Hilalor
