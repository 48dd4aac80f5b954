#pragma once

#include <filesystem>

#include "platform/Platform.hpp"
#include "platform/Surfaces.hpp"
#include "program/SharedObjects.hpp"
#include "screens/map/MapContext.hpp"

namespace Hilalor::Program {

/// Puts the program's screens into panels and windows of the desktop.
class ScreenSurfaces final : public Surfaces {
 public:
  /// `appIcon` is the program's picture; there is none where the file cannot be read.
  ScreenSurfaces(const Platform& platform, SharedObjects& objects,
                 std::filesystem::path appIcon = {});

  [[nodiscard]] std::unique_ptr<Panel> makeCalendarPanel(CalendarPanelEvents events,
                                                         std::optional<Advice> advice) override;
  [[nodiscard]] std::unique_ptr<Window> makeSettingsWindow(
      Updater* updater, std::function<void()> onWillClose) override;
  [[nodiscard]] std::unique_ptr<Window> makePlaceWindow(std::function<void()> onWillClose) override;

 private:
  [[nodiscard]] Screens::MapContext mapContext() const;

  const Platform& platform_;
  SharedObjects& objects_;
  std::filesystem::path appIcon_;
};

}  // namespace Hilalor::Program
