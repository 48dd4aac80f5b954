#pragma once

#include "screens/map/MapContext.hpp"
#include "screens/panel/PanelContext.hpp"
#include "screens/settings/SettingsContext.hpp"
#include "tests/fakes/FakePlatform.hpp"

namespace Hilalor::Screens {

[[nodiscard]] inline MapContext mapContext(FakePlatform& desktop) {
  return {.loop = desktop.loop, .atlas = desktop.atlas, .geocoder = desktop.geocoder};
}

[[nodiscard]] inline PanelContext panelContext(FakePlatform& desktop) {
  return {.application = desktop.application,
          .clock = desktop.loop,
          .loop = desktop.loop,
          .settings = desktop.settings(),
          .locationManager = desktop.locationManager(),
          .notificationManager = desktop.notificationManager(),
          .notes = desktop.notes()};
}

[[nodiscard]] inline SettingsContext settingsContext(FakePlatform& desktop) {
  return {.clock = desktop.loop,
          .settings = desktop.settings(),
          .locationManager = desktop.locationManager(),
          .notificationManager = desktop.notificationManager(),
          .sounds = desktop.sounds,
          .workspace = &desktop.workspace,
          .loginEntry = desktop.platform.loginEntry,
          .map = mapContext(desktop)};
}

}  // namespace Hilalor::Screens
