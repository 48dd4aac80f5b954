#include <gmock/gmock.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/desktop/store/StoreFile.hpp"

namespace Hilalor {
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

TEST_F(SqliteDefaultsStoreTest, IgnoresADictionaryWithAnEntryThatIsNoTextUntilItIsReplaced) {
  open()->setDictionary("notes", {{"2025-03-15", "kept"}, {"2025-03-16", "number"}});
  runSql("UPDATE entries SET value = 16 WHERE entry = '2025-03-16'");
  {
    const auto store = open();
    EXPECT_EQ(store->dictionary("notes"), std::nullopt);
    EXPECT_THAT(store->value("notes"), Optional(Eq(DefaultsValue(OpaqueValue()))));
    store->setEntry("notes", "2025-03-17", "new");
  }
  EXPECT_EQ(open()->dictionary("notes"), (TextDictionary{{"2025-03-17", "new"}}));
}

TEST_F(SqliteDefaultsStoreTest, CreatesNothingBeforeTheFirstWriteAndThenAPrivateFolder) {
  const auto store = open();
  EXPECT_EQ(store->value("key"), std::nullopt);
  EXPECT_FALSE(std::filesystem::exists(file().parent_path()));
  store->setValue("key", true);
  EXPECT_EQ(std::filesystem::status(file().parent_path()).permissions(),
            std::filesystem::perms::owner_all);
}

TEST_F(SqliteDefaultsStoreTest, StartsOverAnEmptyFile) {
  setBytes(file(), "");
  open()->setValue("key", true);
  EXPECT_THAT(open()->boolean("key"), Optional(true));
  EXPECT_THAT(setAsideFiles(), testing::IsEmpty());
}

TEST_F(SqliteDefaultsStoreTest, LosesNothingWhenTheFileIsDeletedOrReplaced) {
  const auto store = open();
  store->setValue("before", "text"s);
  store->setDictionary("notes", {{"2025-03-15", "note"}});

  std::filesystem::remove_all(file().parent_path());
  store->setValue("after", true);
  EXPECT_THAT(open()->string("before"), Optional("text"s));
  EXPECT_THAT(open()->boolean("after"), Optional(true));

  const auto other = folder.path() / "other.sqlite";
  SqliteDefaultsStore(other, loop).setDictionary("notes", {{"2025-03-16", "theirs"}});
  SqliteDefaultsStore(other, loop).setValue("before", "theirs"s);
  std::filesystem::rename(other, file());
  store->setEntry("notes", "2025-03-17", "new");
  EXPECT_THAT(open()->string("before"), Optional("theirs"s));
  EXPECT_EQ(
      open()->dictionary("notes"),
      (TextDictionary{{"2025-03-15", "note"}, {"2025-03-16", "theirs"}, {"2025-03-17", "new"}}));
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
  const auto store = open();
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
}

TEST_F(SqliteDefaultsStoreTest, LiesUnderTheXdgConfigHome) {
  setenv("XDG_CONFIG_HOME", "/somewhere/config", 1);
  EXPECT_EQ(SqliteDefaultsStore::userFile(), "/somewhere/config/hilalor/defaults.sqlite");
  setenv("XDG_CONFIG_HOME", "not/absolute", 1);
  setenv("HOME", "/home/someone", 1);
  EXPECT_EQ(SqliteDefaultsStore::userFile(), "/home/someone/.config/hilalor/defaults.sqlite");
  unsetenv("XDG_CONFIG_HOME");
  unsetenv("HOME");
  EXPECT_TRUE(SqliteDefaultsStore::userFile().is_absolute());
}

}  // namespace
}  // namespace Hilalor
