#include <gmock/gmock.h>
#include <sys/stat.h>

#include <cmath>
#include <cstdlib>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/desktop/store/StoreFile.hpp"

namespace Hilalor::Desktop {
namespace {

using namespace std::string_literals;
using testing::Eq;
using testing::Optional;

class SqliteDefaultsStoreTest : public StoreFile {};

TEST_F(SqliteDefaultsStoreTest, KeepsEveryValueWithItsTypeAcrossStarts) {
  const std::vector<std::pair<std::string, DefaultsValue>> values = {
      {"false", false},
      {"true", true},
      {"zero", std::int64_t{0}},
      {"lowest", std::numeric_limits<std::int64_t>::min()},
      {"real", 21.422510},
      {"whole real", 1.0},
      {"infinite", -std::numeric_limits<double>::infinity()},
      {"empty", ""s},
      {"text", "مكة 🕋 \n"s},
      {"nul", "a\0b"s},
      {"ill-formed", "\xff\xc3("s},
      {"number in text", "15"s},
      {"", "no key"s},
  };
  {
    const auto store = open();
    for (const auto& [key, value] : values)
      store->setValue(key, value);
    store->setValue("no number", std::nan(""));
  }
  const auto store = open();
  for (const auto& [key, value] : values)
    EXPECT_THAT(store->value(key), Optional(Eq(value))) << key;
  EXPECT_TRUE(std::isnan(store->number("no number")));
  EXPECT_EQ(store->value("absent"), std::nullopt);
}

TEST_F(SqliteDefaultsStoreTest, KeepsDictionariesEntryByEntryAcrossStarts) {
  {
    const auto store = open();
    store->setDictionary("a", {{"gone", "1"}, {"old", "2"}});
    store->setDictionary("a", {{"kept", "3"}, {"", "4"}, {"removed", "5"}});
    store->setEntry("a", "kept", "changed");
    store->setEntry("a", "removed", std::nullopt);
    store->setEntry("a", "nul\0"s, "\0"s);
    store->setDictionary("ab", {});
    store->setEntry("new", "entry", "text");
    store->setValue("was text", "text"s);
    store->setEntry("was text", "only", std::nullopt);
    store->setDictionary("was dictionary", {{"entry", "text"}});
    store->setValue("was dictionary", true);
  }
  const auto store = open();
  EXPECT_EQ(store->dictionary("a"),
            (TextDictionary{{"kept", "changed"}, {"", "4"}, {"nul\0"s, "\0"s}}));
  EXPECT_EQ(store->dictionary("ab"), TextDictionary());
  EXPECT_EQ(store->dictionary("new"), (TextDictionary{{"entry", "text"}}));
  EXPECT_EQ(store->dictionary("was text"), TextDictionary());
  EXPECT_EQ(store->value("was text"), std::nullopt);
  EXPECT_EQ(store->dictionary("was dictionary"), std::nullopt);
  EXPECT_THAT(store->value("was dictionary"), Optional(Eq(DefaultsValue(true))));
  EXPECT_EQ(store->dictionary("absent"), std::nullopt);
}

TEST_F(SqliteDefaultsStoreTest, ReadsWhatDoesNotFitItsTypeAsOpaque) {
  open()->setValue("key", true);
  for (const char* row :
       {"'boolean', 2", "'boolean', 'true'", "'integer', '15'", "'integer', 1.5", "'text', 15",
        "'text', x'00ff'", "'real', '1.0'", "'integer', NULL", "'date', 'today'", "'', NULL"}) {
    runSql("UPDATE defaults SET (type, value) = ("s + row + ")");
    EXPECT_THAT(open()->value("key"), Optional(Eq(DefaultsValue(OpaqueValue())))) << row;
  }
  runSql("UPDATE defaults SET (type, value) = ('real', 21)");
  EXPECT_THAT(open()->value("key"), Optional(Eq(DefaultsValue(21.0))));
}

TEST_F(SqliteDefaultsStoreTest, CreatesNothingBeforeTheFirstWriteAndThenForTheUserAlone) {
  namespace fs = std::filesystem;
  const auto former = umask(0);
  {
    const auto store = open();
    EXPECT_EQ(store->value("key"), std::nullopt);
    EXPECT_FALSE(fs::exists(file().parent_path()));
    fs::create_directory(file().parent_path());
    store->setValue("key", true);
  }
  fs::permissions(file(), fs::perms::all);
  const auto store = open();
  store->setValue("key", false);
  umask(former);
  EXPECT_EQ(fs::status(file().parent_path()).permissions(), fs::perms::owner_all);
  for (const auto& entry : fs::directory_iterator(file().parent_path()))
    EXPECT_EQ(entry.status().permissions() & ~fs::perms::owner_all, fs::perms::none) << entry;
}

TEST_F(SqliteDefaultsStoreTest, HasEverythingInTheFileAloneAfterAQuietMoment) {
  const auto store = open();
  store->setEntry("notes", "1", "note");
  store->setValue("key", true);
  loop.advance(Seconds(10));
  const auto copy = folder.path() / "copy" / "defaults.sqlite";
  setBytes(copy, bytes(file()));
  const SqliteDefaultsStore other(copy, loop);
  EXPECT_EQ(other.dictionary("notes"), (TextDictionary{{"1", "note"}}));
  EXPECT_THAT(other.boolean("key"), Optional(true));
}

TEST_F(SqliteDefaultsStoreTest, WritesLongTextsOnAnotherThreadAndInTheirOrder) {
  const std::string text(1 << 20, 'n');
  loop.holdBackground();
  {
    const auto store = open();
    store->setEntry("notes", "1", "before");
    store->setEntry("notes", "1", text);
    store->setEntry("notes", "2", text);
    store->setEntry("notes", "1", "after");
    EXPECT_EQ(open()->dictionary("notes"), (TextDictionary{{"1", "before"}}));
    loop.runBackground();
    store->setEntry("notes", "3", "new");
    EXPECT_EQ(store->dictionary("notes")->at("1"), "after");
    store->setEntry("notes", "3", text);
  }
  EXPECT_TRUE(open()->dictionary("notes") ==
              (TextDictionary{{"1", "after"}, {"2", text}, {"3", text}}));
}

TEST_F(SqliteDefaultsStoreTest, NeitherReadsNorWritesWhatIsNoFile) {
  namespace fs = std::filesystem;
  fs::create_directory(file().parent_path());
  const std::function<void(const fs::path&)> makers[] = {
      [](const fs::path& path) { mkfifo(path.c_str(), S_IRWXU); },
      [](const fs::path& path) { fs::create_directory(path); },
      [](const fs::path& path) { fs::create_symlink("/dev/zero", path); }};
  for (const auto& make : makers) {
    for (const char* suffix : {"", "-wal"}) {
      make(file().string() + suffix);
      const auto store = open();
      EXPECT_TRUE(store->isRead());
      store->setValue("key", true);
      EXPECT_FALSE(store->isKept.value());
      fs::remove(file().string() + suffix);
      loop.advance(Seconds(64));
      EXPECT_TRUE(store->isKept.value());
      EXPECT_THAT(open()->boolean("key"), Optional(true));
      store->close();
      fs::remove(file());
    }
  }
}

TEST_F(SqliteDefaultsStoreTest, TakesTheWritesOfTwoProgramsEntryByEntry) {
  const auto one = open();
  one->setDictionary("notes", {});
  const auto other = open();
  for (int day = 10; day < 30; ++day) {
    (day % 2 == 0 ? one : other)->setEntry("notes", std::to_string(day), "note");
    (day % 2 == 0 ? one : other)->setValue("last", std::int64_t{day});
  }
  EXPECT_EQ(open()->dictionary("notes")->size(), 20U);
  EXPECT_THAT(open()->integer("last"), Optional(29));
}

TEST_F(SqliteDefaultsStoreTest, WritesLaterWhatAnotherProgramsLockHoldsUp) {
  auto store = open();
  store->setValue("key", "old"s);
  const auto other = SqliteConnection::open(file(), SqliteConnection::Access::readWrite);
  ASSERT_EQ(other->execute("BEGIN IMMEDIATE"), SQLITE_OK);
  store->setValue("key", "new"s);
  EXPECT_THAT(store->string("key"), Optional("new"s));
  loop.advance(Seconds(600));
  EXPECT_THAT(open()->string("key"), Optional("old"s));
  ASSERT_EQ(other->execute("COMMIT"), SQLITE_OK);
  loop.advance(Seconds(64));
  EXPECT_THAT(open()->string("key"), Optional("new"s));
  ASSERT_EQ(other->execute("BEGIN IMMEDIATE"), SQLITE_OK);
  store->setValue("key", "last"s);
  ASSERT_EQ(other->execute("COMMIT"), SQLITE_OK);
  store.reset();  // before it tries again
  EXPECT_THAT(open()->string("key"), Optional("last"s));
}

}  // namespace
}  // namespace Hilalor::Desktop
