#include "rules/calendar/NotesStore.hpp"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/datetime/Instants.hpp"
#include "tests/fakes/InMemoryDefaultsStore.hpp"
#include "tests/fakes/SystemTimeZone.hpp"

namespace Hilalor {
namespace {

using namespace std::string_literals;

class NotesStoreTest : public testing::Test {
 protected:
  [[nodiscard]] std::optional<TextDictionary> stored() const {
    return defaults.dictionary("dayNotes");
  }

  SystemTimeZone zone{"Asia/Beirut"};
  InMemoryDefaultsStore defaults;
  const Date day = utc(2025, 3, 14, 22);  // 15 March in Beirut
};

TEST_F(NotesStoreTest, KeepsTheTextOfADayAsTyped) {
  for (const auto& text : {"  two spaces before\n"s, "ملاحظة 🌙"s, "nul\0inside"s,
                           "\xff\xfe broken"s, std::string(1 << 20, 'n'), "\u200b"s}) {
    NotesStore notes(defaults);
    notes.setNote(text, day);
    EXPECT_EQ(notes.note(day), text);
    EXPECT_TRUE(notes.hasNote(day));
    EXPECT_EQ(stored(), notes.notes());
    EXPECT_EQ(NotesStore(defaults).note(day), text);
  }
}

TEST_F(NotesStoreTest, TakesABlankTextForNone) {
  for (const auto& blank : {""s, " "s, " \t\r\n\v\f"s,
                            "\u0085\u00a0\u1680\u2000\u200a\u2028\u2029"s, "\u202f\u205f\u3000"s}) {
    NotesStore notes(defaults);
    notes.setNote("text", day);
    notes.setNote(blank, day);
    EXPECT_FALSE(notes.hasNote(day));
    EXPECT_EQ(notes.note(day), "");
    EXPECT_EQ(stored(), TextDictionary());
  }
}

TEST_F(NotesStoreTest, KnowsADayByItsLocalDate) {
  NotesStore notes(defaults);
  notes.setNote("note", day);
  EXPECT_EQ(notes.note(day + Seconds(86399)), "note");
  EXPECT_EQ(notes.note(day - Seconds(1)), "");
  EXPECT_EQ(notes.note(day + Seconds(86400)), "");
  EXPECT_EQ(stored(), (TextDictionary{{"2025-03-15", "note"}}));
  // A day that begins at one o'clock.
  notes.setNote("short day", utc(2025, 3, 29, 22));
  EXPECT_TRUE(stored()->contains("2025-03-30"));
}

TEST_F(NotesStoreTest, TellsBeforeEachChangeAndWritesItsEntryAlone) {
  NotesStore notes(defaults);
  std::vector<std::string> before;
  const auto subscription = notes.willChange.subscribe([&] { before.push_back(notes.note(day)); });
  notes.setNote("a", day);
  notes.setNote("a", day);
  notes.setNote("", day);
  notes.setNote("", day);
  EXPECT_THAT(before, testing::ElementsAre("", "a", "a", ""));
  EXPECT_THAT(defaults.writes, testing::Each(testing::Eq("dayNotes/2025-03-15")));
  EXPECT_EQ(defaults.writes.size(), 4U);
}

TEST_F(NotesStoreTest, ReadsStoredNotesAsTheyAreAndWritesNothing) {
  defaults.setDictionary("dayNotes", {{"2025-03-15", "  "}, {"2025-03-16", ""}, {"odd key", "x"}});
  defaults.writes.clear();
  const NotesStore notes(defaults);
  EXPECT_TRUE(notes.hasNote(day));
  EXPECT_FALSE(notes.hasNote(day + Seconds(86400)));
  EXPECT_EQ(notes.notes().size(), 3U);
  EXPECT_TRUE(defaults.writes.empty());
}

TEST_F(NotesStoreTest, ReplacesAStoredValueThatIsNoDictionaryOfTexts) {
  defaults.setValue("dayNotes", OpaqueValue());
  NotesStore notes(defaults);
  EXPECT_TRUE(notes.notes().empty());
  notes.setNote("new", day);
  EXPECT_EQ(stored(), (TextDictionary{{"2025-03-15", "new"}}));
}

TEST_F(NotesStoreTest, TakesOverWhatComesInAndTellsBefore) {
  NotesStore notes(defaults);
  int told = 0;
  const auto subscription = notes.willChange.subscribe([&] {
    ++told;
    EXPECT_FALSE(notes.hasNote(day));
  });
  defaults.setDictionary("dayNotes", {{"2025-03-15", "note"}});
  defaults.cameIn.emit();
  EXPECT_EQ(notes.note(day), "note");
  defaults.cameIn.emit();
  EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace Hilalor
