#include "app/SharedObjects.hpp"

#include "app/AppSettings.hpp"
#include "app/LocationManager.hpp"
#include "app/NotesStore.hpp"
#include "app/PrayerNotificationManager.hpp"

namespace Hilalor {

void resetSharedObjects() {
  PrayerNotificationManager::resetShared();
  AppSettings::resetShared();
  NotesStore::resetShared();
  LocationManager::resetShared();
}

}  // namespace Hilalor
