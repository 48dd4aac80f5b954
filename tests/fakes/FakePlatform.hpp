#pragma once

#include <optional>

#include "datetime/Date.hpp"
#include "platform/Platform.hpp"
#include "rules/bar/BarContext.hpp"
#include "rules/calendar/NotesStore.hpp"
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

/// A whole desktop of fakes, and over it the objects that a program has one each of. These are
/// built when they are first asked for, so that a test can prepare what they find.
class FakePlatform {
 public:
  explicit FakePlatform(Date start = {0}) : loop(start) {}
  FakePlatform(const FakePlatform&) = delete;
  FakePlatform& operator=(const FakePlatform&) = delete;

  [[nodiscard]] LocationManager& locationManager() { return objects().locationManager; }
  [[nodiscard]] AppSettings& settings() { return objects().settings; }
  [[nodiscard]] PrayerNotificationManager& notificationManager() {
    return objects().notificationManager;
  }
  [[nodiscard]] NotesStore& notes() { return objects().notes; }

  /// The program ends; what is asked for next belongs to another over the same desktop.
  void restart() { objects_.reset(); }

  [[nodiscard]] BarContext barContext() {
    return {.platform = platform,
            .surfaces = surfaces,
            .settings = settings(),
            .locationManager = locationManager(),
            .notificationManager = notificationManager()};
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
  FakeLoginEntry loginEntry;
  Platform platform{.application = application,
                    .clock = loop,
                    .loop = loop,
                    .defaults = defaults,
                    .statusBar = statusBar,
                    .screens = screens,
                    .mouse = mouse,
                    .location = location,
                    .geocoder = geocoder,
                    .atlas = atlas,
                    .notifications = notifications,
                    .sounds = sounds,
                    .workspace = &workspace,
                    .updater = &updater,
                    .loginEntry = &loginEntry,
                    .soundFolders = {}};

 private:
  struct Objects {
    explicit Objects(const Platform& on)
        : locationManager(on.location, on.geocoder, on.loop),
          settings(on.defaults, locationManager, on.soundFolders),
          notificationManager(settings, on.clock, on.loop, on.notifications, on.sounds),
          notes(on.defaults) {}

    LocationManager locationManager;
    AppSettings settings;
    PrayerNotificationManager notificationManager;
    NotesStore notes;
  };

  [[nodiscard]] Objects& objects() {
    if (!objects_) objects_.emplace(platform);
    return *objects_;
  }

  std::optional<Objects> objects_;
};

}  // namespace Hilalor
