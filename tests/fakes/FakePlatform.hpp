#pragma once

#include "datetime/Date.hpp"
#include "platform/Platform.hpp"
#include "rules/SharedObjects.hpp"
#include "tests/fakes/FakeAtlas.hpp"
#include "tests/fakes/FakeDesktop.hpp"
#include "tests/fakes/FakeGeocoder.hpp"
#include "tests/fakes/FakeLocationService.hpp"
#include "tests/fakes/FakeNotificationCenter.hpp"
#include "tests/fakes/FakeSoundService.hpp"
#include "tests/fakes/FakeSurfaces.hpp"
#include "tests/fakes/InMemoryDefaultsStore.hpp"
#include "tests/fakes/VirtualLoop.hpp"

namespace Hilalor {

/// A whole desktop of fakes, installed while it lives; the shared objects are built over it.
class FakePlatform {
 public:
  explicit FakePlatform(Date start = {0}) : loop(start) { Platform::install(&platform); }
  FakePlatform(const FakePlatform&) = delete;
  FakePlatform& operator=(const FakePlatform&) = delete;
  ~FakePlatform() {
    resetSharedObjects();
    Platform::install(nullptr);
  }

  VirtualLoop loop;
  FakeApplication application;
  InMemoryDefaultsStore defaults;
  FakeStatusBar statusBar;
  FakeSurfaces surfaces;
  FakeScreens screens;
  FakeMouse mouse;
  FakeLocationService location;
  FakeGeocoder geocoder;
  FakeAtlas atlas;
  FakeNotificationCenter notifications{loop};
  FakeSoundService sounds{loop};
  FakeWorkspace workspace;
  FakeUpdater updater;
  Platform platform{.application = application,
                    .clock = loop,
                    .loop = loop,
                    .defaults = defaults,
                    .statusBar = statusBar,
                    .surfaces = surfaces,
                    .screens = screens,
                    .mouse = mouse,
                    .location = location,
                    .geocoder = geocoder,
                    .atlas = atlas,
                    .notifications = notifications,
                    .sounds = sounds,
                    .workspace = &workspace,
                    .updater = &updater,
                    .soundFolders = {}};
};

}  // namespace Hilalor
