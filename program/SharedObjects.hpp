#pragma once

#include "platform/Platform.hpp"
#include "rules/calendar/NotesStore.hpp"
#include "rules/prayer/PrayerNotificationManager.hpp"
#include "rules/settings/AppSettings.hpp"
#include "rules/settings/LocationManager.hpp"

namespace Hilalor::Program {

/// The objects of which the program has one each. The platform must outlive them. They are handed
/// down from here by reference; while they live, their types' `shared()` answers them too. Main
/// thread.
class SharedObjects {
 public:
  explicit SharedObjects(const Platform& platform);
  SharedObjects(const SharedObjects&) = delete;
  SharedObjects& operator=(const SharedObjects&) = delete;
  ~SharedObjects();

  LocationManager locationManager;
  AppSettings settings;
  PrayerNotificationManager notificationManager;
  NotesStore notes;
};

}  // namespace Hilalor::Program
