#include "screens/settings/LocationSettings.hpp"

#include "screens/map/MapPickerView.hpp"
#include "tests/screens/settings/SettingsTest.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LocationSettingsTest : public SettingsTest {
 protected:
  [[nodiscard]] LocationManager& manager() { return desktop.locationManager(); }

  /// The map, while it is shown.
  [[nodiscard]] MapPickerView* map() const { return part<MapPickerView>(*screen); }

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
  using Status = AuthorizationStatus;
  constexpr const char* kDenied = "Location access denied.|Open System Settings →";
  const struct {
    Status status;
    bool hasFix;
    const char* name;
    QString lines;
  } cases[] = {
      {Status::notDetermined, false, "", "Allow Location Access"},
      {Status::restricted, false, "", kDenied},
      {Status::denied, true, "Jeddah", kDenied},
      {Status::authorizedAlways, false, "Jeddah", "Detecting location…"},
      {Status::authorizedAlways, true, "", "Location detected"},
      {Status::authorizedAlways, true, "Jeddah", "Jeddah"},
      {Status::authorizedWhenInUse, true, "Jeddah", "Allow Location Access"},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(static_cast<int>(one.status));
    manager().authStatus.assign(one.status);
    manager().coordinate.assign(one.hasFix ? std::optional(LocationCoordinate{21.5, 39.2})
                                           : std::nullopt);
    manager().locationName.assign(one.name);
    settle();
    EXPECT_EQ(lines().join('|'), one.lines);
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

  // Back from the desktop's settings, a second time from elsewhere, and with a place of their own.
  const int asked = desktop.location.asksAgain;
  for (const int looks : {1, 2, 2}) {
    QEvent back(QEvent::WindowActivate);
    QApplication::sendEvent(screen.get(), &back);
    EXPECT_EQ(desktop.location.authorizationRequests, 2);
    EXPECT_EQ(desktop.location.asksAgain, asked + looks);
    if (looks == 2) settings().locationMode = LocationMode::manual;
  }
  settings().locationMode = LocationMode::automatic;
  desktop.location.report(AuthorizationStatus::authorizedAlways);
  settle();
  EXPECT_EQ(lines(), QStringList{"Detecting location…"});
}

TEST_F(LocationSettingsTest, AManualPlaceIsNamedAndCanBeChanged) {
  show();
  click(toggle("Set Manually"));
  EXPECT_EQ(lines(), QStringList{"Pick Location on Map"});
  settings().manualLocationName = "Jeddah";
  settle();
  EXPECT_EQ(lines(), (QStringList{"Jeddah", "Change Location"}));
  click(toggle("Use system location"));
  EXPECT_EQ(lines(), QStringList{"Allow Location Access"});
}

TEST_F(LocationSettingsTest, TheMapGivesThePlaceAndLeavesTheModeAlone) {
  show();
  settings().locationMode = LocationMode::manual;
  settings().manualLatitude = 21.5;
  settings().manualLongitude = 39.2;
  settle();
  desktop.defaults.writes.clear();
  click(button("Pick Location on Map"));
  ASSERT_TRUE(map());
  click(button("Confirm"));
  EXPECT_THAT(desktop.defaults.writes, ElementsAre("manualLatitude", "manualLongitude",
                                                   "manualLocationName", "manualTimeZoneId"));
  EXPECT_EQ(stored("manualLatitude"), "21.500000");
  EXPECT_EQ(stored("manualLongitude"), "39.200000");
  EXPECT_EQ(stored("manualLocationName"), "Custom Location");
  EXPECT_EQ(stored("manualTimeZoneId"), "Asia/Riyadh");
  EXPECT_FALSE(map());
  EXPECT_EQ(lines(), QStringList{"Change Location"});

  desktop.geocoder.requests.back().answer({Placemark{{}, {}, "United States", {}}});
  settle();
  click(button("Use it. Usual in the United States: ISNA (North America)."));
  EXPECT_EQ(stored("calculationMethod"), "northAmerica");
  EXPECT_FALSE(showsText("Usual in the United States: ISNA (North America)."));
}

TEST_F(LocationSettingsTest, WithoutAPlaceTheMapBeginsWithoutAPin) {
  settings().locationMode = LocationMode::manual;
  show();
  desktop.defaults.writes.clear();
  click(button("Pick Location on Map"));
  ASSERT_TRUE(map());
  EXPECT_FALSE(button("Confirm")->isEnabled());
  click(button("Cancel"));
  EXPECT_FALSE(map());
  EXPECT_THAT(desktop.defaults.writes, IsEmpty());
}

}  // namespace
}  // namespace Hilalor::Screens
