#include <gmock/gmock.h>
#include <unistd.h>

#include <functional>
#include <string>

#include "tests/desktop/store/StoreFile.hpp"
#include "tests/fakes/ChildProcess.hpp"

namespace Hilalor::Desktop {
namespace {

using namespace std::string_literals;
using testing::Optional;

/// A file or a log that others have changed under the open store.
class ReplacedStore : public StoreFile {
 protected:
  [[nodiscard]] std::filesystem::path log() const { return file().string() + "-wal"; }

  // The bytes of a store with these notes.
  [[nodiscard]] std::string bytesWith(const TextDictionary& notes) {
    const auto other = folder.path() / "other.sqlite";
    {
      SqliteDefaultsStore store(other, loop);
      store.setDictionary("notes", notes);
      store.setValue("theme", "theirs"s);
    }
    auto content = bytes(other);
    std::filesystem::remove(other);
    return content;
  }

  void putInPlace(const std::string& content) const {
    setBytes(folder.path() / "other.sqlite", content);
    std::filesystem::rename(folder.path() / "other.sqlite", file());
  }
};

TEST_F(ReplacedStore, LosesNothingByAnAttackOnFileOrLogAndAKillAfterTheNextWrite) {
  namespace fs = std::filesystem;
  const struct {
    const char* name;
    std::function<void()> attack;
  } cases[] = {
      {"log deleted", [&] { fs::remove(log()); }},
      {"log cut", [&] { fs::resize_file(log(), 5000); }},
      {"log emptied", [&] { fs::resize_file(log(), 0); }},
      {"log overwritten", [&] { setBytes(log(), std::string(fs::file_size(log()), 'x')); }},
      {"log replaced",
       [&] {
         setBytes(folder.path() / "new", "x");
         fs::rename(folder.path() / "new", log());
       }},
      {"file cut", [&] { fs::resize_file(file(), fs::file_size(file()) / 2); }},
      {"file emptied", [&] { fs::resize_file(file(), 0); }},
      {"file deleted", [&] { fs::remove(file()); }},
      {"all deleted", [&] { fs::remove_all(file().parent_path()); }},
  };
  for (const auto& damage : cases) {
    SCOPED_TRACE(damage.name);
    fs::remove_all(file().parent_path());
    TextDictionary notes{{"new", "note"}};
    for (int day = 10; day < 30; ++day)
      notes[std::to_string(day)] = std::string(300, 'n');
    ChildProcess child([&] {
      const auto store = open();
      store->setEntry("notes", "gone", "note");
      loop.advance(Seconds(10));
      store->setEntry("notes", "gone", std::nullopt);
      for (int day = 10; day < 30; ++day)
        store->setEntry("notes", std::to_string(day), notes[std::to_string(day)]);
      damage.attack();
      store->setEntry("notes", "new", "note");
      _exit(0);
    });
    ASSERT_EQ(child.exitStatus(), 0);
    EXPECT_EQ(open()->dictionary("notes"), notes);
  }
}

TEST_F(ReplacedStore, KeepsWhatWasRestoredAndWhatItDoesNotHold) {
  const auto restored = bytesWith({{"1", "theirs"}, {"2", "theirs"}});
  const std::function<void()> ways[] = {[&] { putInPlace(restored); },
                                        [&] { setBytes(file(), restored); }};
  for (const auto& restore : ways) {
    std::filesystem::remove_all(file().parent_path());
    ChildProcess child([&] {
      const auto store = open();
      store->setDictionary("notes", {{"1", "ours"}, {"3", "ours"}});
      store->setValue("theme", "ours"s);
      restore();
      store->setEntry("notes", "4", "new");
      _exit(0);
    });
    ASSERT_EQ(child.exitStatus(), 0);
    const auto store = open();
    EXPECT_EQ(store->dictionary("notes"),
              (TextDictionary{{"1", "theirs"}, {"2", "theirs"}, {"3", "ours"}, {"4", "new"}}));
    EXPECT_THAT(store->string("theme"), Optional("theirs"s));
    // What gave way can be found again.
    ASSERT_EQ(setAsideFiles().size(), 1U);
    EXPECT_EQ(SqliteDefaultsStore(setAsideFiles().front(), loop).dictionary("notes")->at("1"),
              "ours");
  }
}

TEST_F(ReplacedStore, NewsWinsOverAFileWithAnEntryThatCannotBeRead) {
  const auto store = open();
  store->setDictionary("notes", {{"1", "ours"}});
  const auto replaceFile = [&] {
    const auto other = folder.path() / "other.sqlite";
    setBytes(other, bytesWith({{"1", "theirs"}, {"2", "number"}}));
    SqliteConnection::open(other, SqliteConnection::Access::readWrite)
        ->execute("UPDATE entries SET value = 16 WHERE entry = '2'");
    std::filesystem::rename(other, file());
  };
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
  putInPlace(bytesWith({{"2", "restored"}}));
  store->lookAgain();
  EXPECT_EQ(told, 0) << "within a call";
  loop.advance(Seconds(0));
  EXPECT_EQ(told, 1);
  EXPECT_EQ(store->dictionary("notes"), (TextDictionary{{"1", "ours"}, {"2", "restored"}}));
  putInPlace(bytesWith({{"2", "restored again"}}));
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
}  // namespace Hilalor::Desktop
