#include "program/ScreenSurfaces.hpp"

#include <utility>

#include "desktop/panel/LinuxPanel.hpp"
#include "desktop/panel/LinuxWindow.hpp"
#include "screens/map/MapPickerView.hpp"
#include "screens/panel/CalendarView.hpp"
#include "screens/settings/SettingsView.hpp"
#include "ui/TextStyle.hpp"

namespace Hilalor::Program {

using namespace Desktop;
using namespace Screens;

namespace {

/// With the desktop's type as large as it is now.
WindowProperties settingsWindow() {
  const double scale = Ui::typeScale();
  return {.title = "Hilalor Settings",
          .contentSize = {380 * scale, 520 * scale},
          .minimumSize = {380 * scale, 400}};
}

constexpr WindowProperties kPlaceWindow{
    .title = "Choose Location", .contentSize = {640, 500}, .minimumSize = {640, 500}};

}  // namespace

ScreenSurfaces::ScreenSurfaces(const Platform& platform, SharedObjects& objects,
                               std::filesystem::path appIcon)
    : platform_(platform), objects_(objects), appIcon_(std::move(appIcon)) {}

std::unique_ptr<Panel> ScreenSurfaces::makeCalendarPanel(CalendarPanelEvents events,
                                                         std::optional<Advice> advice) {
  const PanelContext context{.application = platform_.application,
                             .clock = platform_.clock,
                             .loop = platform_.loop,
                             .settings = objects_.settings,
                             .locationManager = objects_.locationManager,
                             .notificationManager = objects_.notificationManager,
                             .notes = objects_.notes};
  auto screen = std::make_unique<CalendarView>(context, std::move(events.onSizeChange),
                                               std::move(events.onOpenSettings), std::move(advice),
                                               std::move(events.onChoosePlace));
  return std::make_unique<LinuxPanel>(std::move(screen), std::move(events.onDismiss));
}

std::unique_ptr<Window> ScreenSurfaces::makeSettingsWindow(Updater* updater,
                                                           std::function<void()> onWillClose) {
  const SettingsContext context{.clock = platform_.clock,
                                .settings = objects_.settings,
                                .locationManager = objects_.locationManager,
                                .notificationManager = objects_.notificationManager,
                                .sounds = platform_.sounds,
                                .workspace = platform_.workspace,
                                .loginEntry = platform_.loginEntry,
                                .map = mapContext()};
  const QPixmap appIcon(QString::fromStdString(appIcon_.string()));
  auto screen = std::make_unique<SettingsView>(context, updater, appIcon);
  screen->setWindowIcon(appIcon);
  return std::make_unique<LinuxWindow>(std::move(screen), settingsWindow(), std::move(onWillClose));
}

std::unique_ptr<Window> ScreenSurfaces::makePlaceWindow(std::function<void()> onWillClose) {
  auto& settings = objects_.settings;
  auto screen = std::make_unique<MapPickerView>(
      mapContext(), settings.manualCoordinate(),
      [&settings](LocationCoordinate coordinate, const std::string& name, const TimeZone& zone) {
        settings.choosePlace(coordinate, name, zone);
      });
  screen->setWindowIcon(QPixmap(QString::fromStdString(appIcon_.string())));
  return std::make_unique<LinuxWindow>(std::move(screen), kPlaceWindow, std::move(onWillClose));
}

MapContext ScreenSurfaces::mapContext() const {
  return {.loop = platform_.loop, .atlas = platform_.atlas, .geocoder = platform_.geocoder};
}

}  // namespace Hilalor::Program
