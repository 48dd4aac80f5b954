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

ScreenSurfaces::ScreenSurfaces(std::filesystem::path appIcon) : appIcon_(std::move(appIcon)) {}

std::unique_ptr<Panel> ScreenSurfaces::makeCalendarPanel(CalendarPanelEvents events,
                                                         std::optional<Advice> advice) {
  auto screen = std::make_unique<CalendarView>(std::move(events.onSizeChange),
                                               std::move(events.onOpenSettings), std::move(advice));
  return std::make_unique<LinuxPanel>(std::move(screen), std::move(events.onDismiss));
}

std::unique_ptr<Window> ScreenSurfaces::makeSettingsWindow(Updater* updater,
                                                           std::function<void()> onWillClose) {
  const QPixmap appIcon(QString::fromStdString(appIcon_.string()));
  auto screen = std::make_unique<SettingsView>(updater, appIcon);
  screen->setWindowIcon(appIcon);
  return std::make_unique<LinuxWindow>(std::move(screen), kSettingsWindow, std::move(onWillClose));
}

}  // namespace Hilalor::Program
