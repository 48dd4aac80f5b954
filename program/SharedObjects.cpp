#include "program/SharedObjects.hpp"

namespace Hilalor::Program {

SharedObjects::SharedObjects(const Platform& platform)
    : locationManager(platform.location, platform.geocoder, platform.loop),
      settings(platform.defaults, locationManager, platform.soundFolders),
      notificationManager(settings, platform.clock, platform.loop, platform.notifications,
                          platform.sounds),
      notes(platform.defaults) {
  LocationManager::shared_ = &locationManager;
  AppSettings::shared_ = &settings;
  PrayerNotificationManager::shared_ = &notificationManager;
  NotesStore::shared_ = &notes;
}

SharedObjects::~SharedObjects() {
  NotesStore::shared_ = nullptr;
  PrayerNotificationManager::shared_ = nullptr;
  AppSettings::shared_ = nullptr;
  LocationManager::shared_ = nullptr;
}

}  // namespace Hilalor::Program
