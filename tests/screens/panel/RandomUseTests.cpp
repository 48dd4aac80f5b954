#include <cstdlib>
#include <map>
#include <random>

#include "tests/screens/panel/PanelTest.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

/// How many, of the number that a thorough run makes; HILALOR_THOROUGH asks for it.
int times(int thorough) {
  constexpr int kUsualShare = 20;
  return std::getenv("HILALOR_THOROUGH") != nullptr ? thorough : thorough / kUsualShare;
}

/// Months, clicks, keys, settings and notes in any order, with the notes kept beside.
class RandomUse : public PanelTest {
 protected:
  [[nodiscard]] int upTo(int limit) { return std::uniform_int_distribution(0, limit - 1)(random); }

  [[nodiscard]] DayCellView& anyCell() {
    return *parts<DayCellView>(*screen).at(static_cast<std::size_t>(upTo(42)));
  }

  /// Keys for the panel; while a note is open, only the one that closes it.
  void press(Qt::Key key) {
    const bool noteIsOpen = part<TextEditor>(*screen) != nullptr;
    QWidget* focused = QApplication::focusWidget();
    QTest::keyClick(focused != nullptr ? focused : screen.get(), noteIsOpen ? Qt::Key_Escape : key);
  }

  void editNote() {
    DayCellView& cell = anyCell();
    if (!cell.day()) return;
    const Date day = cell.day()->cell.date;
    doubleClick(cell);
    auto* editor = part<TextEditor>(*screen);
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor->focusProxy(), QString("note %1").arg(upTo(1000)));
    if (upTo(4) == 0) {
      QTest::keyClick(editor->focusProxy(), Qt::Key_A, Qt::ControlModifier);
      QTest::keyClick(editor->focusProxy(), Qt::Key_Delete);
    }
    const std::string text = editor->text().toStdString();
    text.empty() ? void(expected.erase(day.secondsSince1970))
                 : void(expected[day.secondsSince1970] = text);
    if (upTo(2) == 0) QTest::keyClick(editor->focusProxy(), Qt::Key_Escape);
  }

  void changeSetting() {
    auto& settings = desktop.settings();
    const bool isOn = upTo(2) == 0;
    Setting<bool>* const switches[] = {&settings.showSecondaryCalendar, &settings.showHolidays,
                                       &settings.showSunnahTimes, &settings.showPrayerTimes};
    const auto which = static_cast<std::size_t>(upTo(6));
    if (which < std::size(switches)) {
      *switches[which] = isOn;
    } else if (which == std::size(switches)) {
      settings.primaryCalendar = isOn ? PrimaryCalendar::hijri : PrimaryCalendar::gregorian;
    } else {
      desktop.notificationManager().playingDua.assign(isOn);
    }
  }

  void act() {
    static constexpr Qt::Key kKeys[] = {
        Qt::Key_Left, Qt::Key_Right,  Qt::Key_Up,  Qt::Key_Down,  Qt::Key_PageUp, Qt::Key_PageDown,
        Qt::Key_Home, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Space, Qt::Key_Escape};
    switch (upTo(7)) {
      case 0:
        return editNote();
      case 1:
        return changeSetting();
      case 2:
        return click(&anyCell());
      case 3:
        return doubleClick(titleBlock());
      case 4:
        return QTest::mouseMove(&anyCell());
      case 5:
        desktop.loop.advance(Seconds(60));
        return;
      default:
        return press(kKeys[upTo(static_cast<int>(std::size(kKeys)))]);
    }
  }

  std::mt19937 random{2026};
  std::map<double, std::string> expected;
};

TEST_F(RandomUse, ManyEventsLeaveTheNotesAsTheyWereTyped) {
  show();
  for (int event = 0; event < times(10'000); ++event) {
    act();
    settle();
  }
  for (const auto& [day, text] : expected)
    EXPECT_EQ(desktop.notes().note({day}), text);
  EXPECT_EQ(desktop.notes().notes().size(), expected.size());
  EXPECT_EQ(desktop.defaults.dictionary("dayNotes"), desktop.notes().notes());
}

}  // namespace
}  // namespace Hilalor::Screens
