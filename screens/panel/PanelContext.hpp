#pragma once

#include "platform/Application.hpp"
#include "platform/Clock.hpp"
#include "platform/RunLoop.hpp"
#include "rules/calendar/NotesStore.hpp"
#include "rules/prayer/PrayerNotificationManager.hpp"
#include "rules/settings/AppSettings.hpp"
#include "rules/settings/LocationManager.hpp"

namespace Hilalor::Screens {

/// What the panel works with.
struct PanelContext {
  Application& application;
  const Clock& clock;
  RunLoop& loop;
  AppSettings& settings;
  LocationManager& locationManager;
  PrayerNotificationManager& notificationManager;
  NotesStore& notes;
};

}  // namespace Hilalor::Screens
