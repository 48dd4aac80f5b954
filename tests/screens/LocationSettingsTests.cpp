#include "app/LocationSettings.hpp"

#include "tests/screens/SettingsTest.hpp"

namespace Hilalor {
namespace {

using ::testing::ElementsAre;

class LocationSettingsTest : public SettingsTest {
 protected:
  [[nodiscard]] static LocationManager& manager() { return LocationManager::shared(); }

  /// Which of the block's lines are there.
  [[nodiscard]] QStringList lines() const {
    QStringList shown;
    for (const char* text :
         {"Location access denied.", "Detecting location…", "Location detected", "Jeddah"})
      if (showsText(text)) shown.append(text);
    for (const char* name : {"Open System Settings →", "Allow Location Access", "Change Location",
                             "Pick Location on Map"})
      if (button(name) != nullptr) shown.append(name);
    return shown;
  }
};

TEST_F(LocationSettingsTest, TellsHowFarTheSystemsLocationIs) {
  show();
  const struct {
    AuthorizationStatus status;
    bool hasFix;
    const char* name;
    QStringList lines;
  } cases[] = {
      {AuthorizationStatus::notDetermined, false, "", {"Allow Location Access"}},
      {AuthorizationStatus::restricted,
       false,
       "",
       {"Location access denied.", "Open System Settings →"}},
      {AuthorizationStatus::denied,
       true,
       "Jeddah",
       {"Location access denied.", "Open System Settings →"}},
      {AuthorizationStatus::authorizedAlways, false, "Jeddah", {"Detecting location…"}},
      {AuthorizationStatus::authorizedAlways, true, "", {"Location detected"}},
      {AuthorizationStatus::authorizedAlways, true, "Jeddah", {"Jeddah"}},
      {AuthorizationStatus::authorizedWhenInUse, true, "Jeddah", {"Allow Location Access"}},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(static_cast<int>(one.status));
    manager().authStatus.assign(one.status);
    manager().coordinate.assign(one.hasFix ? std::optional(LocationCoordinate{21.5, 39.2})
                                           : std::nullopt);
    manager().locationName.assign(one.name);
    settle();
    EXPECT_EQ(lines(), one.lines);
  }
}

TEST_F(LocationSettingsTest, AsksForAccessAndOpensTheDesktopsSettings) {
  show();
  click(button("Allow Location Access"));
  EXPECT_EQ(desktop.location.authorizationRequests, 1);
  desktop.location.report(AuthorizationStatus::denied);
  settle();
  click(button("Open System Settings →"));
  EXPECT_THAT(desktop.workspace.panes, ElementsAre(SettingsPane::locationPrivacy));
}

TEST_F(LocationSettingsTest, AManualPlaceIsNamedAndCanBeChanged) {
  show();
  click(toggle("Set Manually"));
  settle();
  EXPECT_EQ(lines(), QStringList{"Pick Location on Map"});
  settings().manualLocationName = "Jeddah";
  settle();
  EXPECT_EQ(lines(), (QStringList{"Jeddah", "Change Location"}));
  click(toggle("Use system location"));
  settle();
  EXPECT_EQ(lines(), QStringList{"Allow Location Access"});
}

}  // namespace
}  // namespace Hilalor
