#pragma once

#include "platform/Surfaces.hpp"

namespace Hilalor {

/// Puts the program's screens into panels and windows of the desktop.
class ScreenSurfaces final : public Surfaces {
 public:
  [[nodiscard]] std::unique_ptr<Panel> makeCalendarPanel(CalendarPanelEvents events) override;
  [[nodiscard]] std::unique_ptr<Window> makeSettingsWindow(
      Updater* updater, std::function<void()> onWillClose) override;
};

}  // namespace Hilalor
