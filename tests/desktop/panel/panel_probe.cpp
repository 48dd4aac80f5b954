// The item in the bar with its panel over the real desktop, with services that a test sets by
// lines on the input:
//   theme system|light|dark      calendar gregorian|hijri     sunnah|times|month on|off
//   voice on|off                 dua on|off                   measure|settings N
//   quit
// "measure" opens the panel N times, "settings" the settings window, and prints the milliseconds
// until it is painted.

#include <unistd.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QSocketNotifier>
#include <iostream>
#include <map>
#include <sstream>
#include <string>

#include "desktop/display/LinuxScreens.hpp"
#include "desktop/item/LinuxStatusBar.hpp"
#include "desktop/panel/ColorSchemeSetting.hpp"
#include "desktop/panel/LinuxMouseMonitor.hpp"
#include "desktop/process/QtRunLoop.hpp"
#include "desktop/store/SqliteDefaultsStore.hpp"
#include "program/ScreenSurfaces.hpp"
#include "rules/SharedObjects.hpp"
#include "rules/bar/StatusBarController.hpp"
#include "rules/prayer/PrayerNotificationManager.hpp"
#include "rules/settings/AppSettings.hpp"
#include "tests/fakes/FakeAtlas.hpp"
#include "tests/fakes/FakeDesktop.hpp"
#include "tests/fakes/FakeGeocoder.hpp"
#include "tests/fakes/FakeLocationService.hpp"
#include "tests/fakes/FakeNotificationCenter.hpp"
#include "tests/fakes/FakeSoundService.hpp"
#include "tests/fakes/VirtualLoop.hpp"

namespace {

using namespace Hilalor;
using namespace Hilalor::Desktop;
using Hilalor::Program::ScreenSurfaces;

/// A Sunday in Ramadan, 13:00 in Riyadh, a national day; it stands still.
class StoppedClock final : public Clock {
 public:
  [[nodiscard]] Date now() const override { return {1771754400}; }
};

class QtApplication final : public Application {
 public:
  void terminate() override { QApplication::quit(); }
  void setReopenHandler(std::function<void()>) override {}
  void setResumeHandler(std::function<void()>) override {}
};

/// Tells when the first window of a panel has been painted.
class FirstPaint final : public QObject {
 public:
  FirstPaint() { qApp->installEventFilter(this); }
  bool wasPainted = false;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::UpdateRequest || event->type() == QEvent::Expose)
      wasPainted = wasPainted || (watched->isWindowType() || watched->isWidgetType());
    return false;
  }
};

void waitFor(const FirstPaint& paint) {
  while (!paint.wasPainted)
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  QApplication::sync();
}

double millisecondsToOpenPanel() {
  QElapsedTimer watch;
  watch.start();
  ScreenSurfaces surfaces;
  const auto panel = surfaces.makeCalendarPanel({}, {});
  panel->setAppearance(Appearance::system);
  const Size size = panel->fittingSize();
  panel->setFrame({{200, 30}, size});
  const FirstPaint paint;
  panel->orderFront(KeyboardAtOpening::leftWhereItIs);
  waitFor(paint);
  return static_cast<double>(watch.nsecsElapsed()) / 1e6;
}

double millisecondsToOpenSettings() {
  QElapsedTimer watch;
  watch.start();
  ScreenSurfaces surfaces(HILALOR_APP_ICON);
  const auto window = surfaces.makeSettingsWindow(nullptr, {});
  window->setAppearance(Appearance::system);
  const FirstPaint paint;
  window->makeKeyAndOrderFront();
  waitFor(paint);
  return static_cast<double>(watch.nsecsElapsed()) / 1e6;
}

void measure(int times, double (*milliseconds)()) {
  for (; times > 0; --times) {
    std::cout << milliseconds() << std::endl;
    QApplication::processEvents();
  }
}

void obey(const std::string& line) {
  std::istringstream words(line);
  std::string what;
  std::string value;
  words >> what >> value;
  const bool isOn = value == "on";
  auto& settings = AppSettings::shared();
  auto& alerts = PrayerNotificationManager::shared();
  if (what == "theme") settings.theme = *fromRawValue<AppTheme>(value);
  if (what == "calendar") settings.primaryCalendar = *fromRawValue<PrimaryCalendar>(value);
  if (what == "sunnah") settings.showSunnahTimes = isOn;
  if (what == "times") settings.showPrayerTimes = isOn;
  if (what == "month") settings.showCalendar = isOn;
  if (what == "dua") alerts.playingDua.assign(isOn);
  if (what == "voice")
    alerts.playingVoice.assign(isOn ? std::optional(AthanVoice::vemran) : std::nullopt);
  if (what == "quit") QApplication::quit();
  if (what == "measure") measure(std::stoi(value), millisecondsToOpenPanel);
  if (what == "settings") measure(std::stoi(value), millisecondsToOpenSettings);
}

}  // namespace

int main(int argc, char** argv) {
  // Lines that come together are then seen to wait.
  std::ios::sync_with_stdio(false);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QtRunLoop loop;
  SessionBus bus(loop);
  SqliteDefaultsStore store(SqliteDefaultsStore::userFile(), loop);
  LinuxStatusBar bar(loop, bus, store, HILALOR_ITEM_PICTURES);
  QtApplication qtApplication;
  StoppedClock clock;
  ScreenSurfaces surfaces;
  LinuxScreens screens;
  LinuxMouseMonitor mouse;
  FakeLocationService location;
  FakeGeocoder geocoder;
  FakeAtlas atlas;
  VirtualLoop silence;
  FakeNotificationCenter notifications(silence);
  FakeSoundService sounds(silence);
  Platform platform{.application = qtApplication,
                    .clock = clock,
                    .loop = loop,
                    .defaults = store,
                    .statusBar = bar,
                    .surfaces = surfaces,
                    .screens = screens,
                    .mouse = mouse,
                    .location = location,
                    .geocoder = geocoder,
                    .atlas = atlas,
                    .notifications = notifications,
                    .sounds = sounds,
                    .updater = nullptr,
                    .soundFolders = {}};
  Platform::install(&platform);
  const ColorSchemeSetting colorScheme(bus);
  {
    StatusBarController controller(nullptr);
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&] {
      std::string line;
      do {
        if (!std::getline(std::cin, line)) return input.setEnabled(false);
        obey(line);
      } while (std::cin.rdbuf()->in_avail() > 0);
    });
    QApplication::exec();
  }
  resetSharedObjects();
  return 0;
}
