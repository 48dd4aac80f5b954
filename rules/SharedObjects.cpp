#include "rules/SharedObjects.hpp"

#include "rules/calendar/NotesStore.hpp"
#include "rules/prayer/PrayerNotificationManager.hpp"
#include "rules/settings/AppSettings.hpp"
#include "rules/settings/LocationManager.hpp"

namespace Hilalor {

void resetSharedObjects() {
  PrayerNotificationManager::resetShared();
  AppSettings::resetShared();
  NotesStore::resetShared();
  LocationManager::resetShared();
}

}  // namespace Hilalor
