#pragma once

#include <filesystem>

#include "platform/Surfaces.hpp"

namespace Hilalor::Program {

/// Puts the program's screens into panels and windows of the desktop.
class ScreenSurfaces final : public Surfaces {
 public:
  /// The program's picture; there is none where the file cannot be read.
  explicit ScreenSurfaces(std::filesystem::path appIcon = {});

  [[nodiscard]] std::unique_ptr<Panel> makeCalendarPanel(CalendarPanelEvents events,
                                                         std::optional<Advice> advice) override;
  [[nodiscard]] std::unique_ptr<Window> makeSettingsWindow(
      Updater* updater, std::function<void()> onWillClose) override;

 private:
  std::filesystem::path appIcon_;
};

}  // namespace Hilalor::Program
