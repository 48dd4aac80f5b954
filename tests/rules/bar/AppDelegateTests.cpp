#include "rules/bar/AppDelegate.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/fakes/FakePlatform.hpp"

namespace Hilalor {
namespace {

constexpr const char* kFlag = "didRequestLocationPermission";

void launch(FakePlatform& desktop) {
  AppDelegate delegate(desktop.barContext());
  delegate.applicationDidFinishLaunching();
}

TEST(AppDelegate, StartsTheUpdaterBeforeTheItemAppears) {
  FakePlatform desktop;
  AppDelegate delegate(desktop.barContext());
  EXPECT_EQ(desktop.updater.starts, 1);
  EXPECT_TRUE(desktop.statusBar.titles.empty());
  delegate.applicationDidFinishLaunching();
  EXPECT_FALSE(desktop.statusBar.titles.empty());
}

TEST(AppDelegate, ASecondLaunchLeavesOneWorkingController) {
  FakePlatform desktop;
  AppDelegate delegate(desktop.barContext());
  delegate.applicationDidFinishLaunching();
  delegate.applicationDidFinishLaunching();
  desktop.application.reopen();
  EXPECT_TRUE(desktop.surfaces.panel);
}

TEST(AppDelegate, RunsWithoutAnUpdater) {
  FakePlatform desktop;
  desktop.platform.updater = nullptr;
  launch(desktop);
  EXPECT_FALSE(desktop.statusBar.titles.empty());
}

TEST(AppDelegate, FirstRunAsksOnceForTheLocation) {
  FakePlatform desktop;
  desktop.location.onAuthorizationRequest = [&] {
    EXPECT_EQ(desktop.defaults.boolean(kFlag), true) << "the flag is written before the request";
    EXPECT_EQ(desktop.defaults.string("locationMode"), "automatic");
    EXPECT_FALSE(desktop.statusBar.titles.empty()) << "the item is there before the request";
  };
  launch(desktop);
  EXPECT_EQ(desktop.location.authorizationRequests, 1);
  launch(desktop);
  EXPECT_EQ(desktop.location.authorizationRequests, 1);
}

TEST(AppDelegate, FirstRunLeavesAStoredModeAloneThatIsText) {
  using namespace std::string_literals;
  for (const DefaultsValue& mode : {DefaultsValue("manual"s), {"orbital"s}, {""s}, {int64_t{7}}}) {
    FakePlatform desktop;
    desktop.defaults.setValue("locationMode", mode);
    launch(desktop);
    const auto* text = std::get_if<std::string>(&mode);
    EXPECT_EQ(desktop.defaults.string("locationMode"), text ? *text : "automatic");
    EXPECT_EQ(desktop.defaults.boolean(kFlag), true);
    EXPECT_EQ(desktop.location.authorizationRequests, 1);
  }
}

TEST(AppDelegate, FirstRunWaitsForAStoreThatCannotBeReadYet) {
  FakePlatform desktop;
  desktop.defaults.hasRead = false;
  AppDelegate delegate(desktop.barContext());
  delegate.applicationDidFinishLaunching();
  EXPECT_TRUE(desktop.defaults.writes.empty());
  EXPECT_EQ(desktop.location.authorizationRequests, 0);
  desktop.defaults.setValue("locationMode", std::string("manual"));
  desktop.defaults.hasRead = true;
  desktop.defaults.cameIn.emit();
  EXPECT_EQ(desktop.settings().locationMode, LocationMode::manual);
  EXPECT_EQ(desktop.defaults.string("locationMode"), "manual");
  EXPECT_EQ(desktop.location.authorizationRequests, 1);
}

TEST(AppDelegate, LaterRunsWriteAndAskNothing) {
  FakePlatform desktop;
  desktop.defaults.setValue(kFlag, true);
  desktop.defaults.writes.clear();
  launch(desktop);
  EXPECT_TRUE(desktop.defaults.writes.empty());
  EXPECT_EQ(desktop.location.authorizationRequests, 0);
}

}  // namespace
}  // namespace Hilalor
