#include "screens/settings/AlertSettings.hpp"

#include <fstream>

#include "tests/fakes/TemporaryFolder.hpp"
#include "tests/screens/settings/SettingsTest.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class AlertSettingsTest : public SettingsTest {
 protected:
  AlertSettingsTest() {
    // Glass and Bowl are what the fake desktop can play.
    for (const char* name : {"Glass", "Bowl"})
      std::ofstream(sounds.path() / (std::string(name) + ".aiff")) << "FORM";
    desktop.platform.soundFolders = {sounds.path()};
  }

  [[nodiscard]] bool warns() const { return showsText("Notifications are blocked."); }

  /// What sounds, and the first letters of the previews' marks: "athan SPP" while one can be
  /// stopped.
  [[nodiscard]] std::string heardAndMarked() const {
    std::string text;
    for (const auto& name : desktop.sounds.audible())
      text += name;
    text += ' ';
    for (const Button* preview : previews())
      text += preview->toolTip().toStdString().front();
    return text;
  }

  TemporaryFolder sounds;
};

TEST_F(AlertSettingsTest, EachSwitchingOnAsksOnceForPermission) {
  const auto& requests = desktop.notifications.requestedOptions;
  show();
  EXPECT_THAT(requests, IsEmpty());
  for (const std::size_t expected : {1U, 1U, 2U, 2U}) {
    click(toggle("Notify me at prayer times"));
    EXPECT_THAT(requests, SizeIs(expected));
  }
  EXPECT_EQ(requests.front(), NotificationOptions::alert | NotificationOptions::sound);
  screen.reset();
  settings().prayerNotificationsEnabled = true;
  show();
  EXPECT_THAT(requests, SizeIs(2)) << "what is on as the window opens was asked for before";
}

TEST_F(AlertSettingsTest, WarnsWhileBannersAreWantedAndBlocked) {
  desktop.notifications.status = NotificationAuthorization::denied;
  show();
  EXPECT_FALSE(warns());
  click(toggle("Notify me at prayer times"));
  EXPECT_TRUE(warns());
  EXPECT_TRUE(showsText("Enable them in System Settings → Notifications → Hilalor."));
  click(button("Open System Settings →"));
  EXPECT_THAT(desktop.workspace.panes, ElementsAre(SettingsPane::notifications));
  click(toggle("Notification"));
  EXPECT_FALSE(warns());
  click(toggle("Notification"));
  EXPECT_TRUE(warns());
  desktop.notifications.status = NotificationAuthorization::authorized;
  for (int twice = 0; twice < 2; ++twice)
    click(toggle("Show prayer times"));
  EXPECT_TRUE(warns()) << "as it was when the window was shown";
  click(toggle("Show prayer times"));
  screen->hide();
  screen->show();
  settle();
  click(toggle("Show prayer times"));
  EXPECT_FALSE(warns()) << "looked at afresh whenever the window is shown";
}

TEST_F(AlertSettingsTest, AnswersAfterTheWindowHasGoneComeToNothing) {
  show();
  QTest::mouseClick(toggle("Notify me at prayer times"), Qt::LeftButton, {}, QPoint(8, 8));
  screen.reset();
  settle();
  EXPECT_THAT(desktop.notifications.requestedOptions, SizeIs(1));
}

TEST_F(AlertSettingsTest, AChosenBeepIsHeardOnce) {
  showEveryRow();
  show();
  choose(openMenu("Glass"), "Bowl");
  EXPECT_EQ(stored("selectedBeepSound"), "Bowl");
  EXPECT_THAT(desktop.sounds.begun(), ElementsAre("Bowl"));
  choose(openMenu("Bowl"), "Bowl");
  EXPECT_THAT(desktop.sounds.begun(), ElementsAre("Bowl")) << "it was chosen before";
  choose(openMenu("Bowl"), "Glass");
  EXPECT_THAT(desktop.sounds.begun(), ElementsAre("Bowl", "Glass"));
  EXPECT_THAT(desktop.sounds.audible(), ElementsAre("Glass"));
}

TEST_F(AlertSettingsTest, ABeepThatIsNotThereAnyMoreIsStillNamed) {
  showEveryRow();
  settings().selectedBeepSound = "Gong";
  show();
  const QMenu* menu = openMenu("Gong");
  ASSERT_EQ(menu->actions().size(), 2);
  for (const QAction* action : menu->actions())
    EXPECT_FALSE(action->isChecked()) << action->text().toStdString();
}

TEST_F(AlertSettingsTest, TheLoopGoesByFivesFromFiveToTwoMinutes) {
  showEveryRow();
  show();
  constexpr int kMoreThanThereAre = 30;
  EXPECT_TRUE(showsText("10 sec"));
  for (int press = 0; press < kMoreThanThereAre; ++press)
    click(button("Loop for, less"));
  EXPECT_EQ(stored("beepLoopSeconds"), "5");
  EXPECT_TRUE(showsText("5 sec"));
  click(button("Loop for, more"));
  EXPECT_EQ(stored("beepLoopSeconds"), "10");
  for (int press = 0; press < kMoreThanThereAre; ++press) {
    settle();
    click(button("Loop for, more"));
  }
  EXPECT_EQ(stored("beepLoopSeconds"), "120");
}

TEST_F(AlertSettingsTest, SaysWhichRecordingsAreTones) {
  showEveryRow();
  desktop.sounds.folder = sounds.path();
  desktop.sounds.recordings.erase("athan2");
  show();
  const QString note = "Soft tones stand in for recordings. Put your own into " +
                       QString::fromStdString(sounds.path().string()) +
                       " as athan2.mp3 (Sh. Tolsar).";
  EXPECT_TRUE(showsText(note));
  desktop.sounds.recordings.insert("athan2");
  QEvent back(QEvent::WindowActivate);
  QApplication::sendEvent(part<AlertSettings>(*screen), &back);
  settle();
  EXPECT_FALSE(showsText(note));
}

TEST_F(AlertSettingsTest, ThePreviewsMarksFollowWhatPlays) {
  showEveryRow();
  show();
  EXPECT_EQ(heardAndMarked(), " PPP");
  // The second in place of the first; a second click stops.
  const std::pair<std::size_t, const char*> clicks[] = {{0, "athan SPP"}, {1, "athan2 PSP"},
                                                        {1, " PPP"},      {2, "after_athan PPS"},
                                                        {2, " PPP"},      {0, "athan SPP"}};
  for (const auto& [row, expected] : clicks) {
    click(previews()[row]);
    EXPECT_EQ(heardAndMarked(), expected);
  }
  desktop.sounds.finish("athan");
  settle();
  EXPECT_EQ(heardAndMarked(), " PPP");
  EXPECT_EQ(stored("athanVoice"), "nothing") << "listening chooses nothing";
}

}  // namespace
}  // namespace Hilalor::Screens
