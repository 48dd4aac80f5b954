#include <QApplication>
#include <QDBusConnection>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "command/AnnouncementFile.hpp"
#include "command/LocatedPlace.hpp"
#include "desktop/diagnosis/Topics.hpp"
#include "desktop/display/Compositor.hpp"
#include "desktop/display/DisplayKind.hpp"
#include "desktop/display/LinuxScreens.hpp"
#include "desktop/item/LinuxStatusBar.hpp"
#include "desktop/notifications/LinuxNotificationCenter.hpp"
#include "desktop/panel/AppearanceSetting.hpp"
#include "desktop/panel/LinuxMouseMonitor.hpp"
#include "desktop/panel/MotionSetting.hpp"
#include "desktop/place/GeoClueLocationService.hpp"
#include "desktop/place/OfflineAtlas.hpp"
#include "desktop/place/OfflineGeocoder.hpp"
#include "desktop/process/Heap.hpp"
#include "desktop/process/ProgramId.hpp"
#include "desktop/process/QtRunLoop.hpp"
#include "desktop/process/Resources.hpp"
#include "desktop/process/SystemClock.hpp"
#include "desktop/session/AutostartEntry.hpp"
#include "desktop/session/BusProbe.hpp"
#include "desktop/session/LateSystemBus.hpp"
#include "desktop/session/LinuxApplication.hpp"
#include "desktop/session/LinuxWorkspace.hpp"
#include "desktop/session/PortalSettings.hpp"
#include "desktop/session/RunningCopy.hpp"
#include "desktop/session/SessionBus.hpp"
#include "desktop/sound/LinuxSoundService.hpp"
#include "desktop/store/SqliteDefaultsStore.hpp"
#include "desktop/store/UserFolders.hpp"
#include "platform/Delivery.hpp"
#include "platform/Platform.hpp"
#include "program/PlaceFile.hpp"
#include "program/ScreenSurfaces.hpp"
#include "program/SharedObjects.hpp"
#include "rules/bar/AppDelegate.hpp"
#include "ui/PopUpStyle.hpp"

#ifdef HILALOR_RELEASE_FEED
#include "desktop/updates/FeedUpdater.hpp"
#include "rules/settings/ProgramFacts.hpp"
#endif

namespace {

using namespace Hilalor;
using namespace Hilalor::Desktop;
using Hilalor::Program::ScreenSurfaces;
using Hilalor::Program::SharedObjects;

constexpr std::chrono::seconds kShutdownPatience{2};

// Nothing touches the location service before the user was asked, which the first run does.
GeoClueLocationService::Contact firstContact(const DefaultsStore& defaults) {
  return AppDelegate::didRequestLocation(defaults) ? GeoClueLocationService::Contact::atStart
                                                   : GeoClueLocationService::Contact::whenAsked;
}

// The user's own recordings and beeps go before the program's.
std::vector<std::filesystem::path> soundFolders() {
  return {userDataFolder() / "hilalor/sounds", resourceFolder() / "sounds"};
}

// A sandbox has folders of its own, in which no desktop looks for what to start.
bool isConfined() {
  std::error_code error;
  return std::filesystem::exists("/.flatpak-info", error);
}

// None in a build that was given no list of releases.
std::unique_ptr<Updater> makeUpdater([[maybe_unused]] RunLoop& loop,
                                     [[maybe_unused]] const Clock& clock,
                                     [[maybe_unused]] Workspace& workspace) {
#ifdef HILALOR_RELEASE_FEED
  return std::make_unique<FeedUpdater>(
      loop, clock, workspace,
      FeedUpdater::Program{
          .version = kVersion, .feed = HILALOR_RELEASE_FEED, .downloadPage = kWebSite});
#else
  return nullptr;
#endif
}

// All services of the Linux desktop, in the order in which they need one another.
class LinuxDesktop {
 public:
  LinuxDesktop(LinuxApplication& application, Ui::PopUpStyle& style)
      : platform_{.application = application,
                  .clock = clock_,
                  .loop = loop_,
                  .defaults = defaults_,
                  .statusBar = statusBar_,
                  .screens = screens_,
                  .mouse = mouse_,
                  .location = location_,
                  .geocoder = geocoder_,
                  .atlas = atlas_,
                  .notifications = notifications_,
                  .sounds = sounds_,
                  .workspace = &workspace_,
                  .updater = updater_.get(),
                  .loginEntry = isConfined() ? nullptr : &loginEntry_,
                  .soundFolders = soundFolders()} {
    followAppearance(portal_);
    followMotion(portal_, style);
    application.remainTheRunningCopy(sessionBus_);
    LinuxApplication::setLostDisplayHandler([this] { defaults_.close(); });
    if (!defaults_.isRead()) contactLaterIfAsked();
    if (!QDBusConnection::systemBus().isConnected()) useLateSystemBus(application);
  }
  LinuxDesktop(const LinuxDesktop&) = delete;
  LinuxDesktop& operator=(const LinuxDesktop&) = delete;
  ~LinuxDesktop() {
    LinuxApplication::setLostDisplayHandler({});
    defaults_.close();
    // Work on other threads uses what goes next. What hangs there is left behind.
    if (!loop_.endBackgroundWork(kShutdownPatience)) std::_Exit(EXIT_SUCCESS);
  }

  [[nodiscard]] const Platform& platform() const { return platform_; }

 private:
  // The store tells only when it can be read that the user was asked in an earlier run.
  void contactLaterIfAsked() {
    cameIn_ = defaults_.cameIn.subscribe([this] {
      if (AppDelegate::didRequestLocation(defaults_)) location_.requestWhenInUseAuthorization();
    });
  }

  void useLateSystemBus(LinuxApplication& application) {
    lateBus_.emplace(loop_, [this, &application](const QDBusConnection& bus) {
      location_.useBus(bus);
      application.useSystemBus(bus);
    });
  }

  SystemClock clock_;
  QtRunLoop loop_;
  SqliteDefaultsStore defaults_{SqliteDefaultsStore::userFile(), loop_};
  SessionBus sessionBus_{loop_};
  LinuxStatusBar statusBar_{loop_, sessionBus_, defaults_, resourceFolder() / "item"};
  LinuxScreens screens_;
  LinuxMouseMonitor mouse_;
  PortalSettings portal_{sessionBus_};
  GeoClueLocationService location_{QDBusConnection::systemBus(), loop_, firstContact(defaults_)};
  OfflineGeocoder geocoder_{resourceFolder() / "geodata", loop_};
  OfflineAtlas atlas_{resourceFolder() / "geodata", loop_};
  LinuxNotificationCenter notifications_{loop_, [this] { return sessionBus_.connection(); }};
  LinuxSoundService sounds_{loop_, soundFolders()};
  LinuxWorkspace workspace_;
  AutostartEntry loginEntry_{userConfigFolder() / "autostart", systemAutostartFolders(),
                             startedProgram()};
  std::unique_ptr<Updater> updater_ = makeUpdater(loop_, clock_, workspace_);
  Platform platform_;
  std::optional<LateSystemBus> lateBus_;
  Subscription cameIn_;
  Subscription busChanged_ = sessionBus_.changed.subscribe([this] { notifications_.busChanged(); });
};

constexpr int kCannot = 2;

int diagnose(int argc, char* argv[]) {
  const QCoreApplication application(argc, argv);
  Desktop::diagnose(argv[2], [](std::string_view subject, const std::string& found) {
    std::printf("%s: %s\n", std::string(subject).c_str(), found.c_str());
    std::fflush(stdout);
  });
  // What hangs behind an answer that did not come is left behind.
  std::_Exit(EXIT_SUCCESS);
}

int tell(const char* word) {
  const auto answer = tellRunningCopy(word);
  if (answer == CopyAnswer::done) return EXIT_SUCCESS;
  std::fputs(answer == CopyAnswer::none
                 ? "hilalor: the running copy, or the session's bus, does not answer\n"
                 : "hilalor: it does not run in this session; \"hilalor\" starts it\n",
             stderr);
  return kCannot;
}

// Without a display Qt would abort, and leave a dump of its memory.
void endWithoutDisplay(QtMsgType type, const QMessageLogContext&, const QString&) {
  if (type != QtFatalMsg) return;
  std::fputs("hilalor: no connection to the display\n", stderr);
  std::_Exit(kCannot);
}

// Lets commands answer for the place that the location service found.
Subscription keepPlaceForCommands(LocationManager& location, RunLoop& loop) {
  return location.willChange.subscribe(onNextPass(loop, [&location] {
    const auto& found = location.coordinate.value();
    const auto file = Program::placeFile();
    if (!found || file.empty()) return;
    keepPlace(file, {*found, location.locationName.value(), location.detectedTimeZone.value()});
  }));
}

// Lets commands say the title of the item while that is an announcement's.
Subscription keepAnnouncementsForCommands(PrayerNotificationManager& manager, RunLoop& loop) {
  const auto kept = std::make_shared<AnnouncementKeeper>(Program::announcementFile());
  return manager.activeAthanTitle.subscribe(
      onNextPass(loop, [kept](const auto& title) { kept->keep(title); }));
}

}  // namespace

int main(int argc, char* argv[]) {
  keepOneHeap();
  if (argc > 2 && argv[1] == std::string_view("diagnose")) return diagnose(argc, argv);
  if (argc > 1 && *argv[1] != '-') return tell(argv[1]);
  const bool isChosen = chooseX11();
  std::optional<SilentBusesHidden> buses(std::in_place);
  const auto sayMessages = qInstallMessageHandler(endWithoutDisplay);
  QApplication qtApplication(argc, argv);
  qInstallMessageHandler(sayMessages);
  buses.reset();
  if (isChosen) forgetChoice();
  auto* style = new Ui::PopUpStyle({&hasCompositor, &settingsManagerAnimates});
  QApplication::setStyle(style);
  QApplication::setApplicationName("hilalor");
  QApplication::setDesktopFileName(kProgramId);
  QApplication::setQuitOnLastWindowClosed(false);

  LinuxApplication application;
  if (!application.becomeTheRunningCopy(LinuxApplication::kPatienceWithAnother))
    return EXIT_SUCCESS;
  const LinuxDesktop desktop(application, *style);
  SharedObjects objects(desktop.platform());
  ScreenSurfaces surfaces(desktop.platform(), objects, resourceFolder() / "AppIcon.png");
  AppDelegate delegate({.platform = desktop.platform(),
                        .surfaces = surfaces,
                        .settings = objects.settings,
                        .locationManager = objects.locationManager,
                        .notificationManager = objects.notificationManager});
  auto& loop = desktop.platform().loop;
  const auto ofPlace = keepPlaceForCommands(objects.locationManager, loop);
  const auto ofTitle = keepAnnouncementsForCommands(objects.notificationManager, loop);
  loop.post([&delegate] { delegate.applicationDidFinishLaunching(); });
  return QApplication::exec();
}
