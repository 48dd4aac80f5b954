// Pictures of the settings window in many states, without a display:
// settings_pictures FOLDER APP_ICON [SCALE].

#include <QApplication>
#include <QDir>
#include <QScrollBar>
#include <functional>
#include <string>

#include "rules/prayer/PrayerNotificationManager.hpp"
#include "screens/settings/SettingsView.hpp"
#include "tests/fakes/Parts.hpp"
#include "tests/fakes/ScreenContexts.hpp"
#include "tests/fakes/SystemTimeZone.hpp"
#include "ui/Containers.hpp"

namespace Hilalor {

using namespace Screens;
using namespace Ui;

namespace {

constexpr QSize kWindow{380, 520};

struct Picture {
  std::string name;
  ColorScheme scheme;
  std::function<void(FakePlatform&)> prepare;
};

void everythingOn(FakePlatform& desktop) {
  auto& settings = desktop.settings();
  settings.prayerNotificationsEnabled = true;
  settings.beepSoundEnabled = true;
  settings.beepLoopEnabled = true;
  settings.athanEnabled = true;
  settings.playDuaAfterAthan = true;
  settings.showSunnahTimes = true;
  settings.prayerMinutes[0] = 3;
  settings.prayerMinutes[5] = -12;
  settings.hijriDays = -1;
  settings.reminderMinutes = 15;
}

void nothingShown(FakePlatform& desktop) {
  desktop.settings().showCalendar = false;
  desktop.settings().showPrayerTimes = false;
}

void notificationsDenied(FakePlatform& desktop) {
  desktop.settings().prayerNotificationsEnabled = true;
  desktop.notifications.status = NotificationAuthorization::denied;
}

void playing(FakePlatform& desktop) {
  everythingOn(desktop);
  desktop.notificationManager().playingVoice.assign(AthanVoice::tolsar);
  desktop.notificationManager().playingDua.assign(true);
}

std::function<void(FakePlatform&)> location(AuthorizationStatus status, bool hasFix) {
  return [status, hasFix](FakePlatform& desktop) {
    auto& manager = desktop.locationManager();
    manager.authStatus.assign(status);
    if (!hasFix) return;
    manager.coordinate.assign(LocationCoordinate{21.54, 39.17});
    manager.locationName.assign("Jeddah");
  };
}

std::function<void(FakePlatform&)> manualPlace(const char* name) {
  return [name](FakePlatform& desktop) {
    desktop.settings().locationMode = LocationMode::manual;
    desktop.settings().manualLocationName = name;
  };
}

void settle(FakePlatform& desktop) {
  constexpr int kPasses = 8;
  for (int pass = 0; pass < kPasses; ++pass) {
    desktop.loop.runPosted();
    QApplication::processEvents();
  }
}

void take(const Picture& picture, const QPixmap& icon, const QDir& folder) {
  FakePlatform desktop({1771754400});
  picture.prepare(desktop);
  SettingsView view(settingsContext(desktop), &desktop.updater, icon);
  view.setPalette(windowPalette(picture.scheme));
  view.resize(kWindow);
  view.show();
  settle(desktop);
  const QString name = QString::fromStdString(picture.name);
  auto* bar = part<ScrollColumn>(view)->verticalScrollBar();
  for (int page = 1;; ++page) {
    view.grab().save(folder.filePath(name + '-' + QString::number(page) + ".png"));
    if (bar->value() == bar->maximum()) break;
    bar->setValue(bar->value() + bar->pageStep());
  }
  view.resize(kWindow.width(), bar->maximum() + kWindow.height());
  settle(desktop);
  view.grab().save(folder.filePath(name + "-whole.png"));
}

void run(const QPixmap& icon, const QDir& folder) {
  const SystemTimeZone zone("Asia/Riyadh");
  const Picture pictures[] = {
      {"everything-light", ColorScheme::light, everythingOn},
      {"everything-dark", ColorScheme::dark, everythingOn},
      {"playing-light", ColorScheme::light, playing},
      {"nothing-light", ColorScheme::light, nothingShown},
      {"blocked-light", ColorScheme::light, notificationsDenied},
      {"blocked-dark", ColorScheme::dark, notificationsDenied},
      {"not-asked-light", ColorScheme::light, location(AuthorizationStatus::notDetermined, false)},
      {"denied-light", ColorScheme::light, location(AuthorizationStatus::denied, false)},
      {"detecting-light", ColorScheme::light,
       location(AuthorizationStatus::authorizedAlways, false)},
      {"detected-dark", ColorScheme::dark, location(AuthorizationStatus::authorizedAlways, true)},
      {"manual-light", ColorScheme::light, manualPlace("")},
      {"manual-named-dark", ColorScheme::dark, manualPlace("Jakarta, Indonesia")},
  };
  for (const auto& picture : pictures)
    take(picture, icon, folder);
}

}  // namespace
}  // namespace Hilalor

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  if (argc > 3) qputenv("QT_SCALE_FACTOR", argv[3]);
  const QApplication application(argc, argv);
  const QPixmap icon(argc > 2 ? argv[2] : "");
  Hilalor::run(icon, QDir(argc > 1 ? argv[1] : "."));
  return 0;
}
