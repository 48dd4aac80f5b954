#include "screens/panel/NoteEditorView.hpp"

#include "tests/screens/panel/PanelTest.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

class NoteEditorViewTest : public PanelTest {
 protected:
  NoteEditorViewTest() { show(); }

  void open(int day) {
    doubleClick(cell(day));
    editor = part<NoteEditorView>(*screen);
  }

  void type(const char* text) {
    QTest::keyClicks(editor->focusProxy()->focusProxy(), text);
    settle();
  }
  void press(Qt::Key key) {
    QTest::keyClick(editor->focusProxy()->focusProxy(), key);
    settle();
  }

  [[nodiscard]] std::string stored(int day) {
    return desktop.notes().note(cell(day).day()->cell.date);
  }

  NoteEditorView* editor = nullptr;
};

TEST_F(NoteEditorViewTest, IsFocusedAtOnceAndStoresEveryKeystroke) {
  open(10);
  EXPECT_TRUE(editor->focusProxy()->focusProxy()->hasFocus());
  type("Hi");
  EXPECT_EQ(stored(10), "Hi");
  EXPECT_TRUE(cell(10).day()->hasNote) << "the cell follows the typing";
  press(Qt::Key_Backspace);
  EXPECT_EQ(stored(10), "H");
  press(Qt::Key_Backspace);
  EXPECT_TRUE(desktop.notes().notes().empty());
  EXPECT_FALSE(cell(10).day()->hasNote);
}

TEST_F(NoteEditorViewTest, ShowsWhatIsStoredUnchangedAndStoresNothingUnasked) {
  const std::string note = "  two\n spaces ";
  desktop.notes().setNote(note, cell(10).day()->cell.date);
  open(10);
  EXPECT_EQ(part<TextEditor>(*editor)->text().toStdString(), note);
  press(Qt::Key_Escape);
  EXPECT_EQ(stored(10), note);
  open(11);
  open(12);
  EXPECT_EQ(parts<NoteEditorView>(*screen).size(), 1U) << "one at a time";
  EXPECT_EQ(part<Text>(*editor)->text(), "February 12, 2026");
  press(Qt::Key_Escape);
  EXPECT_EQ(desktop.notes().notes().size(), 1U);
}

TEST_F(NoteEditorViewTest, SaysSoWhileWhatIsTypedIsNotStored) {
  open(10);
  const auto warning = [&] {
    const auto texts = editor->findChildren<Text*>();
    return std::ranges::find_if(texts, [](const Text* text) {
             return text->isVisible() && text->text().startsWith("Not saved");
           }) != texts.end();
  };
  const int before = editor->window()->height();
  for (const bool isKept : {false, true}) {
    desktop.defaults.isKept.assign(isKept);
    settle();
    EXPECT_EQ(warning(), !isKept);
    EXPECT_EQ(editor->window()->height() > before, !isKept);
  }
}

using StoredNoteTest = PanelTest;

TEST_F(StoredNoteTest, OfBlanksAloneEndsWhenItIsLookedAt) {
  desktop.defaults.setDictionary("dayNotes", {{"2026-02-10", " \n"}, {"2026-02-11", " kept "}});
  show();
  EXPECT_TRUE(cell(10).day()->hasNote);
  for (const int day : {10, 11}) {
    doubleClick(cell(day));
    QTest::keyClick(part<NoteEditorView>(*screen)->focusProxy()->focusProxy(), Qt::Key_Escape);
    settle();
  }
  EXPECT_EQ(desktop.notes().notes(), (TextDictionary{{"2026-02-11", " kept "}}));
}

TEST_F(NoteEditorViewTest, ShowsANoteThatComesInWhileItIsOpen) {
  open(10);
  desktop.defaults.setEntry("dayNotes", "2026-02-10", "stored");
  desktop.defaults.cameIn.emit();
  settle();
  EXPECT_EQ(part<TextEditor>(*editor)->text(), "stored");
  EXPECT_TRUE(cell(10).day()->hasNote);
  type("!");
  EXPECT_EQ(stored(10), "stored!");
}

TEST_F(NoteEditorViewTest, StaysAtItsDayWhenTheMachinesZoneChanges) {
  desktop.notes().setNote("the day before", cell(9).day()->cell.date);
  open(10);
  type("1");
  zone.set("Africa/Cairo");
  type("2");
  EXPECT_EQ(desktop.notes().notes(),
            (TextDictionary{{"2026-02-09", "the day before"}, {"2026-02-10", "12"}}));
  press(Qt::Key_Escape);
  open(10);
  EXPECT_EQ(part<Text>(*editor)->text(), "February 10, 2026");
  EXPECT_EQ(part<TextEditor>(*editor)->text(), "12");
}

TEST_F(NoteEditorViewTest, IsHeadedByTheDayInThePrimaryCalendarAndLaidOutToThePoint) {
  settings().primaryCalendar = PrimaryCalendar::hijri;
  settle();
  open(10);
  EXPECT_EQ(part<Text>(*editor)->text(), "10 Ramadan 1447");
  EXPECT_EQ(editor->width(), 264);
  const auto* text = part<TextEditor>(*editor);
  EXPECT_EQ(text->size(), QSize(240, 120));
  EXPECT_EQ(text->mapTo(editor, QPoint(0, 0)).x(), 12);
  EXPECT_EQ(text->mapTo(editor, QPoint(0, 0)).y() + 120, editor->height() - 12);
}

}  // namespace
}  // namespace Hilalor::Screens
