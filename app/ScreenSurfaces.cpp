#include "app/ScreenSurfaces.hpp"

#include <utility>

#include "app/CalendarView.hpp"
#include "desktop/panel/LinuxPanel.hpp"

namespace Hilalor {

std::unique_ptr<Panel> ScreenSurfaces::makeCalendarPanel(CalendarPanelEvents events) {
  auto screen = std::make_unique<CalendarView>(std::move(events.onSizeChange),
                                               std::move(events.onOpenSettings));
  return std::make_unique<LinuxPanel>(std::move(screen), std::move(events.onDismiss));
}

std::unique_ptr<Window> ScreenSurfaces::makeSettingsWindow(Updater*, std::function<void()>) {
  return nullptr;
}

}  // namespace Hilalor
