#include "tests/screens/panel/PanelTest.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

class KeyboardTest : public PanelTest {
 protected:
  KeyboardTest() {
    show();
    screen->setFocus();
    settle();
  }

  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    settle();
  }
};

TEST_F(KeyboardTest, KeysMoveTheSelection) {
  EXPECT_TRUE(cell(22).hasFocus()) << "the focus begins at today";
  struct Step {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    const char* selection;
  };
  const Step steps[] = {
      {Qt::Key_Right, {}, "23 February 2026"},
      {Qt::Key_Left, {}, "22 February 2026"},
      {Qt::Key_Down, {}, "1 March 2026"},
      {Qt::Key_Up, {}, "22 February 2026"},
      {Qt::Key_PageDown, {}, "22 March 2026"},
      {Qt::Key_PageUp, {}, "22 February 2026"},
      {Qt::Key_PageDown, Qt::ShiftModifier, "22 February 2027"},
      {Qt::Key_PageUp, Qt::ShiftModifier, "22 February 2026"},
      {Qt::Key_Home, {}, "February 2026"},
  };
  for (const auto& [key, modifiers, expected] : steps) {
    press(key, modifiers);
    EXPECT_EQ(selection(), expected);
  }
  EXPECT_TRUE(cell(22).hasFocus());
}

TEST_F(KeyboardTest, TheFocusIsMarkedOnceAKeyIsPressedAndUntilTheNextClick) {
  const DayCellView& today = cell(22);
  const auto shown = [&] {
    settle();
    return screen->grab(frame(today).adjusted(-3, -3, 3, 3)).toImage();
  };
  ASSERT_TRUE(today.hasFocus());
  QTest::mouseClick(&titleBlock(), Qt::RightButton);
  const QImage unmarked = shown();
  press(Qt::Key_Home);
  const QImage marked = shown();
  EXPECT_NE(marked.pixelColor(1, 23), unmarked.pixelColor(1, 23));
  const QRect inside(5, 5, 28, 36);
  EXPECT_EQ(marked.copy(inside), unmarked.copy(inside)) << "round the day, not over it";
  QTest::mouseClick(&titleBlock(), Qt::RightButton);
  EXPECT_TRUE(today.hasFocus());
  EXPECT_EQ(shown(), unmarked);
}

TEST_F(KeyboardTest, ReturnOpensTheNoteAndEscapeClosesIt) {
  press(Qt::Key_Right);
  press(Qt::Key_Return);
  ASSERT_TRUE(part<NoteEditorView>(*screen));
  EXPECT_EQ(part<Text>(*part<NoteEditorView>(*screen))->text(), "February 23, 2026");
  press(Qt::Key_Escape);
  EXPECT_FALSE(part<NoteEditorView>(*screen));
  EXPECT_TRUE(screen->isVisible());
}

TEST_F(KeyboardTest, TabGoesThroughButtonsInTheOrderOfReadingWhichSpaceAndReturnPress) {
  desktop.notificationManager().playingVoice.assign(AthanVoice::vemran);
  settle();
  QStringList order;
  for (int stop = 0; stop < 6; ++stop) {
    press(Qt::Key_Tab);
    order.append(QApplication::focusWidget()->accessibleName());
  }
  EXPECT_EQ(
      order.join("; ").toStdString(),
      "Riyadh: choose your place; Quit Hilalor; Stop Athan; Settings; Previous month; Next month");
  button("Settings")->setFocus();
  press(Qt::Key_Space);
  press(Qt::Key_Return);
  EXPECT_EQ(settingsOpened, 2);
  EXPECT_FALSE(part<NoteEditorView>(*screen));
}

}  // namespace
}  // namespace Hilalor::Screens
