#include "tests/desktop/store/StoreFile.hpp"

namespace Hilalor {
namespace {

/// A file that another has taken the place of, or none, while the store is open.
using ReplacedStore = StoreFile;

TEST_F(ReplacedStore, KeepsTheTextsBesideAnEntryThatIsNoTextInAFileMadeAnew) {
  open()->setDictionary("notes", {{"2025-03-15", "kept"}, {"2025-03-16", "number"}});
  runSql("UPDATE entries SET value = 16 WHERE entry = '2025-03-16'");
  const auto store = open();
  std::filesystem::remove_all(file().parent_path());
  store->setValue("other", true);
  EXPECT_EQ(open()->dictionary("notes"), (TextDictionary{{"2025-03-15", "kept"}}));
  store->setEntry("notes", "2025-03-17", "new");
  EXPECT_EQ(open()->dictionary("notes"),
            (TextDictionary{{"2025-03-15", "kept"}, {"2025-03-17", "new"}}));
}

TEST_F(ReplacedStore, ADictionaryOutlivesAFileWhoseOwnHasAnEntryThatIsNoText) {
  const auto replaceFile = [this] {
    const auto other = folder.path() / "other.sqlite";
    SqliteDefaultsStore(other, loop).setDictionary("notes", {{"1", "theirs"}, {"2", "number"}});
    SqliteConnection::open(other, SqliteConnection::Access::readWrite)
        ->execute("UPDATE entries SET value = 16 WHERE entry = '2'");
    std::filesystem::rename(other, file());
  };
  const auto store = open();
  store->setDictionary("notes", {{"1", "ours"}});
  replaceFile();
  store->setEntry("notes", "3", "new");
  EXPECT_EQ(store->dictionary("notes"), (TextDictionary{{"1", "theirs"}, {"3", "new"}}));
  EXPECT_EQ(open()->dictionary("notes"), store->dictionary("notes"));
  // Every place of the dictionary is news then.
  replaceFile();
  store->setDictionary("notes", {{"3", "newer"}});
  EXPECT_EQ(store->dictionary("notes"), (TextDictionary{{"3", "newer"}}));
  EXPECT_EQ(open()->dictionary("notes"), store->dictionary("notes"));
}

TEST_F(ReplacedStore, ComesInWhenSomebodyLooksOrAtTheNextWrite) {
  const auto store = open();
  store->setDictionary("notes", {{"1", "ours"}});
  int told = 0;
  const auto subscription = store->cameIn.subscribe([&] { ++told; });
  const auto restore = [&](const char* text) {
    const auto other = folder.path() / "other.sqlite";
    SqliteDefaultsStore(other, loop).setEntry("notes", "2", text);
    std::filesystem::rename(other, file());
  };
  restore("restored");
  store->lookAgain();
  EXPECT_EQ(told, 0) << "within a call";
  loop.advance(Seconds(0));
  EXPECT_EQ(told, 1);
  EXPECT_EQ(store->dictionary("notes"), (TextDictionary{{"1", "ours"}, {"2", "restored"}}));
  restore("restored again");
  store->setEntry("notes", "3", "new");
  loop.advance(Seconds(0));
  EXPECT_EQ(told, 2);
  EXPECT_EQ(store->dictionary("notes")->at("2"), "restored again");
  EXPECT_EQ(open()->dictionary("notes"), store->dictionary("notes"));
  store->lookAgain();
  loop.advance(Seconds(100));
  EXPECT_EQ(told, 2);
}

}  // namespace
}  // namespace Hilalor
