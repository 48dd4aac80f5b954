#include "screens/settings/SettingsView.hpp"

#include <QAbstractButton>

#include "rules/settings/ProgramFacts.hpp"
#include "tests/fakes/TemporaryFolder.hpp"
#include "tests/screens/settings/SettingsTest.hpp"
#include "ui/Containers.hpp"
#include "ui/Picture.hpp"
#include "ui/Stepper.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using SettingsViewTest = SettingsTest;

TEST_F(SettingsViewTest, EverySwitchAndBoxStoresAtOnce) {
  showEveryRow();
  show();
  const struct {
    const char* label;
    const char* key;
    const Setting<bool>& setting;
  } rows[] = {
      {"Show calendar", "showCalendar", settings().showCalendar},
      {"Show secondary calendar", "showSecondaryCalendar", settings().showSecondaryCalendar},
      {"Show Islamic Eids & Saudi holidays", "showHolidays", settings().showHolidays},
      {"Show prayer times", "showPrayerTimes", settings().showPrayerTimes},
      {"Show Sunnah times", "showSunnahTimes", settings().showSunnahTimes},
      {"Notify me at prayer times", "prayerNotificationsEnabled",
       settings().prayerNotificationsEnabled},
      {"Notification", "notificationBannerEnabled", settings().notificationBannerEnabled},
      {"Beep Sound", "beepSoundEnabled", settings().beepSoundEnabled},
      {"Loop for", "beepLoopEnabled", settings().beepLoopEnabled},
      {"Athan", "athanEnabled", settings().athanEnabled},
      {"Play after Athan supplication", "playDuaAfterAthan", settings().playDuaAfterAthan},
      {"24-hour clock", "use24HourClock", settings().use24HourClock},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.label);
    const bool before = row.setting;
    for (const bool expected : {!before, before}) {
      desktop.defaults.writes.clear();
      click(toggle(row.label));
      EXPECT_EQ(row.setting.value(), expected);
      EXPECT_EQ(stored(row.key), expected ? "true" : "false");
      EXPECT_THAT(desktop.defaults.writes, ElementsAre(row.key)) << "and nothing else";
      settle();
      EXPECT_EQ(toggle(row.label)->isOn(), expected);
    }
  }
}

TEST_F(SettingsViewTest, EveryPickerOffersItsOptionsInOrderAndStoresTheChosenOne) {
  show();
  const struct {
    const char* key;
    QStringList options;
    std::vector<const char*> rawValues;
  } pickers[] = {
      {"menuBarStyle",
       {"Date  (e.g. 6 Apr)", "Emoji \U0001F4C5", "Next prayer countdown"},
       {"date", "emoji", "nextPrayer"}},
      {"primaryCalendar", {"Gregorian", "Hijri (Umm Al-Qura)"}, {"gregorian", "hijri"}},
      {"asrCalculation", {"Shafi'i / Hanbali / Maliki", "Hanafi"}, {"shafi", "hanafi"}},
      {"calculationMethod",
       {"Umm Al-Qura, Makkah", "Muslim World League", "Egyptian General Authority",
        "University of Karachi", "Dubai (UAE)", "Moonsighting Committee", "ISNA (North America)",
        "Kuwait", "Qatar", "Singapore / Malaysia", "Tehran", "Turkey (Diyanet)"},
       {"ummAlQura", "muslimWorldLeague", "egyptian", "karachi", "dubai", "moonsightingCommittee",
        "northAmerica", "kuwait", "qatar", "singapore", "tehran", "turkey"}},
      {"reminderMinutes",
       {"Off", "5 minutes before", "10 minutes before", "15 minutes before", "20 minutes before",
        "30 minutes before", "45 minutes before", "60 minutes before"},
       {"0", "5", "10", "15", "20", "30", "45", "60"}},
  };
  for (const auto& picker : pickers) {
    SCOPED_TRACE(picker.key);
    QString current = picker.options.front();
    // The first one last, so that every choice is a change.
    for (int step = 1; step <= picker.options.size(); ++step) {
      const int index = step % static_cast<int>(picker.options.size());
      QMenu* menu = openMenu(current);
      QStringList offered;
      for (const QAction* action : menu->actions()) {
        offered.append(action->text());
        EXPECT_EQ(action->isChecked(), action->text() == current);
      }
      ASSERT_EQ(offered.join("; ").toStdString(), picker.options.join("; ").toStdString());
      current = picker.options[index];
      choose(menu, current);
      EXPECT_EQ(stored(picker.key), picker.rawValues[static_cast<std::size_t>(index)]);
    }
  }
}

TEST_F(SettingsViewTest, RingsAndSegmentsStoreAtOnce) {
  showEveryRow();
  show();
  const struct {
    const char* label;
    const char* key;
    const char* rawValue;
  } rings[] = {
      {"Set Manually", "locationMode", "manual"},
      {"Use system location", "locationMode", "automatic"},
      {"Sh. Tolsar · Riyadh Grand Mosque", "athanVoice", "tolsar"},
      {"Sh. Vemran · Al-Masjid Al-Nabawi", "athanVoice", "vemran"},
  };
  for (const auto& ring : rings) {
    SCOPED_TRACE(ring.label);
    click(toggle(ring.label));
    EXPECT_EQ(stored(ring.key), ring.rawValue);
    settle();
    EXPECT_TRUE(toggle(ring.label)->isOn());
    click(toggle(ring.label));
    EXPECT_EQ(stored(ring.key), ring.rawValue) << "a second click leaves it";
  }
  const auto segments = part<SegmentedPicker>(*screen)->findChildren<QAbstractButton*>();
  const std::vector<const char*> themes{"system", "light", "dark"};
  for (const std::size_t index : {2U, 1U, 0U}) {
    click(segments[static_cast<int>(index)]);
    EXPECT_EQ(stored("appTheme"), themes[index]);
    settle();
    EXPECT_TRUE(segments[static_cast<int>(index)]->isChecked());
  }
}

TEST_F(SettingsViewTest, RowsAreThereOnlyWhileWhatTheyDependOnIs) {
  showEveryRow();
  show();
  const struct {
    const char* upper;
    std::vector<const char*> lower;
  } dependences[] = {
      {"Loop for", {}},
      {"Beep Sound", {"Loop for"}},
      {"Athan",
       {"Sh. Vemran · Al-Masjid Al-Nabawi", "Sh. Tolsar · Riyadh Grand Mosque",
        "Play after Athan supplication"}},
      {"Notify me at prayer times", {"Notification", "Beep Sound", "Loop for", "Athan"}},
      {"Show prayer times",
       {"Show Sunnah times", "Use system location", "Set Manually", "Notify me at prayer times",
        "Athan"}},
      {"Show calendar", {"Show secondary calendar", "Show Islamic Eids & Saudi holidays"}},
  };
  for (const auto& [upper, lower] : dependences) {
    SCOPED_TRACE(upper);
    for (const bool isThere : {false, true}) {
      click(toggle(upper));
      for (const char* label : lower)
        EXPECT_EQ(toggle(label) != nullptr, isThere) << label;
    }
  }
}

TEST_F(SettingsViewTest, CardsWithoutTheirSectionsHoldTheirSwitchAlone) {
  settings().showCalendar = false;
  settings().showPrayerTimes = false;
  show();
  const QRect first = frame(*part<Card>(*screen));
  screen->resize(380, 1000);
  settle();
  EXPECT_EQ(frame(*part<Card>(*screen)), first) << "what is free is below";
  std::vector<QString> labels;
  for (const Toggle* found : parts<Toggle>(*screen))
    if (found->isVisible()) labels.push_back(found->accessibleName());
  EXPECT_THAT(labels,
              ElementsAre("Show calendar", "Show prayer times", "24-hour clock", "Start at login"));
}

TEST_F(SettingsViewTest, ShowsWhatChangesElsewhere) {
  show();
  settings().showHolidays = false;
  settings().menuBarStyle = MenuBarStyle::emoji;
  settings().theme = AppTheme::dark;
  settle();
  EXPECT_FALSE(toggle("Show Islamic Eids & Saudi holidays")->isOn());
  EXPECT_TRUE(button(QStringLiteral("Emoji \U0001F4C5")));
  EXPECT_TRUE(part<SegmentedPicker>(*screen)->findChildren<QAbstractButton*>()[2]->isChecked());
}

TEST_F(SettingsViewTest, StepsPrayersAndTheHijriDayByOneAndShowsTodayAsItWillRead) {
  show();
  EXPECT_TRUE(showsText("Today is 5 Ramadan 1447"));
  const struct {
    const char* button;
    int presses;
    const char* key;
    const char* stored;
    const char* shown;
  } steps[] = {{"Fajr, more", 3, "fajrMinutes", "3", "+3 min"},
               {"Isha, less", 61, "ishaMinutes", "-60", "−60 min"},
               {"Hijri day, less", 3, "hijriDays", "-2", "−2 days"},
               {"Hijri day, more", 1, "hijriDays", "-1", "−1 day"}};
  for (const auto& step : steps) {
    SCOPED_TRACE(step.button);
    for (int press = 0; press < step.presses; ++press) {
      QTest::keyClick(button(step.button), Qt::Key_Space);
      settle();
    }
    EXPECT_EQ(stored(step.key), step.stored);
    EXPECT_TRUE(showsText(step.shown));
  }
  EXPECT_TRUE(showsText("Today is 4 Ramadan 1447"));
}

TEST_F(SettingsViewTest, ShowsWhetherTheDesktopStartsItAlsoAfterOthersChangedThat) {
  show();
  EXPECT_TRUE(toggle("Start at login")->isOn());
  click(toggle("Start at login"));
  EXPECT_FALSE(desktop.loginEntry.on);
  desktop.loginEntry.on = true;
  QEvent activated(QEvent::WindowActivate);
  QApplication::sendEvent(screen.get(), &activated);
  settle();
  EXPECT_TRUE(toggle("Start at login")->isOn());
}

/// How many windows there were.
class ShownWindows final : public QObject {
 public:
  ShownWindows() { qApp->installEventFilter(this); }
  int count = 0;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool isWidget = event->type() == QEvent::Show && watched->isWidgetType();
    if (isWidget && static_cast<QWidget*>(watched)->isWindow()) ++count;
    return false;
  }
};

TEST_F(SettingsViewTest, NoPartIsEverAWindowByItself) {
  showEveryRow();
  ShownWindows windows;
  show();
  EXPECT_EQ(windows.count, 1);
}

TEST_F(SettingsViewTest, NoLetterOfALabelIsAShortcut) {
  show();
  for (const QAbstractButton* control : parts<QAbstractButton>(*screen))
    EXPECT_TRUE(control->shortcut().isEmpty()) << control->accessibleName().toStdString();
}

TEST_F(SettingsViewTest, ShowingItWritesNothing) {
  showEveryRow();
  desktop.defaults.writes.clear();
  show();
  EXPECT_THAT(desktop.defaults.writes, IsEmpty());
}

TEST_F(SettingsViewTest, IndentsWhatDependsAndStaysInTheMiddle) {
  showEveryRow();
  show();
  const auto left = [this](const char* label) { return frame(*toggle(label)).left(); };
  EXPECT_EQ(left("Loop for"), left("Beep Sound") + 24);
  EXPECT_EQ(left("Sh. Tolsar · Riyadh Grand Mosque"), left("Beep Sound") + 24);
  EXPECT_EQ(left("Play after Athan supplication"), left("Beep Sound") + 48);
  screen->resize(600, 520);
  settle();
  for (const Card* card : parts<Card>(*screen))
    EXPECT_EQ(frame(*card).center().x(), (600 - 1) / 2);
}

TEST_F(SettingsViewTest, TellsWhatTheProgramIs) {
  FakeUpdater updater;
  show();
  EXPECT_TRUE(showsText("Hilalor"));
  EXPECT_TRUE(showsText("v1.5"));
  EXPECT_FALSE(button("Check for Updates"));
  EXPECT_FALSE(part<Picture>(*screen));
  EXPECT_EQ(showsText("By the Hilalor developers"), *kWebSite == '\0') << "else a link follows";

  QPixmap icon(256, 256);
  icon.fill(Qt::red);
  show(&updater, icon);
  EXPECT_EQ(part<Picture>(*screen)->size(), QSize(44, 44));
  click(button("Check for Updates"));
  EXPECT_EQ(updater.checks, 1);
}

}  // namespace
}  // namespace Hilalor::Screens
