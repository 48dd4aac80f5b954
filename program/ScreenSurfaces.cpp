#include "program/ScreenSurfaces.hpp"

#include <utility>

#include "desktop/panel/LinuxPanel.hpp"
#include "desktop/panel/LinuxWindow.hpp"
#include "screens/panel/CalendarView.hpp"
#include "screens/settings/SettingsView.hpp"

namespace Hilalor::Program {

using namespace Desktop;
using namespace Screens;

namespace {

constexpr WindowProperties kSettingsWindow{
    .title = "Hilalor Settings", .contentSize = {380, 520}, .minimumSize = {380, 400}};

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
                                               std::move(events.onOpenSettings), std::move(advice));
  return std::make_unique<LinuxPanel>(std::move(screen), std::move(events.onDismiss));
}

std::unique_ptr<Window> ScreenSurfaces::makeSettingsWindow(Updater* updater,
                                                           std::function<void()> onWillClose) {
  const SettingsContext context{
      .clock = platform_.clock,
      .settings = objects_.settings,
      .locationManager = objects_.locationManager,
      .notificationManager = objects_.notificationManager,
      .sounds = platform_.sounds,
      .workspace = platform_.workspace,
      .loginEntry = platform_.loginEntry,
      .map = {.loop = platform_.loop, .atlas = platform_.atlas, .geocoder = platform_.geocoder}};
  const QPixmap appIcon(QString::fromStdString(appIcon_.string()));
  auto screen = std::make_unique<SettingsView>(context, updater, appIcon);
  screen->setWindowIcon(appIcon);
  return std::make_unique<LinuxWindow>(std::move(screen), kSettingsWindow, std::move(onWillClose));
}

}  // namespace Hilalor::Program
