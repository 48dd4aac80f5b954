#include <gmock/gmock.h>

#include <algorithm>
#include <optional>
#include <random>
#include <string>

#include "tests/desktop/store/StoreFile.hpp"

namespace Hilalor::Desktop {
namespace {

using namespace std::string_literals;
using testing::Optional;

class DamagedStore : public StoreFile {
 protected:
  // Settings and a year of notes, over some dozens of pages.
  void SetUp() override {
    for (int day = 100; day < 465; ++day)
      notes[std::to_string(day)] = std::string(1500, 'n');
    const auto store = open();
    store->setDictionary("notes", notes);
    store->setValue("theme", "dark"s);
  }

  // What lies there as the program starts, and how many of the notes it finds.
  struct Damage {
    std::string what;
    std::string bytes;
    std::size_t leastNotes = 0;
    std::optional<std::size_t> filesSetAside = std::nullopt;
  };

  // The store works over whatever lies there, and what was damaged lies unchanged beside it.
  void expectWorksAfter(const Damage& damage) {
    SCOPED_TRACE(damage.what);
    std::filesystem::remove_all(file().parent_path());
    setBytes(file(), damage.bytes);
    TextDictionary found;
    {
      const auto store = open();
      found = store->dictionary("notes").value_or(TextDictionary());
      EXPECT_GE(found.size(), damage.leastNotes);
      if (damage.leastNotes > 0) {
        EXPECT_THAT(store->string("theme"), Optional("dark"s));
      }
      // In print they would be long.
      EXPECT_TRUE(damage.leastNotes < notes.size() || found == notes);
      store->setValue("written", true);
      store->setEntry("notes", "500", "new");
      EXPECT_TRUE(store->isKept.value());
    }
    const auto store = open();
    EXPECT_THAT(store->boolean("written"), Optional(true));
    found["500"] = "new";
    EXPECT_TRUE(store->dictionary("notes") == found);
    const auto aside = setAsideFiles();
    EXPECT_EQ(aside.size(), damage.filesSetAside.value_or(aside.size()));
    if (!aside.empty()) {
      EXPECT_EQ(bytes(aside.front()), damage.bytes);
    }
  }

  TextDictionary notes;
};

TEST_F(DamagedStore, WorksAfterDamageAnywhereAndKeepsWhatCanBeRead) {
  const auto sound = bytes(file());
  ASSERT_GT(sound.size(), 100'000U);
  expectWorksAfter({"emptied", "", 0, 0});
  for (std::size_t size = 10; size < sound.size(); size += size < 600 ? 37 : 4093)
    expectWorksAfter({"cut to " + std::to_string(size), sound.substr(0, size), 0, 1});
  for (std::size_t place = 0; place < 100; ++place) {
    auto damaged = sound;
    damaged[place] = static_cast<char>(~damaged[place]);
    expectWorksAfter({"header, byte " + std::to_string(place), damaged, notes.size()});
  }
  auto damaged = sound;
  damaged.replace(damaged.size() / 2 / 4096 * 4096, 4096, 4096, '\xa5');
  expectWorksAfter({"a page", damaged, 330});

  std::mt19937 random(1);
  const auto randomByte = [&] { return static_cast<char>(random()); };
  for (int round = 0; round < 60; ++round) {
    damaged = sound;
    const bool whole = round % 10 == 0;
    const auto start = whole ? 0 : random() % damaged.size();
    const auto end = whole ? damaged.size() : std::min(start + 200, damaged.size());
    std::generate(damaged.begin() + static_cast<std::ptrdiff_t>(start),
                  damaged.begin() + static_cast<std::ptrdiff_t>(end), randomByte);
    expectWorksAfter({"random bytes, round " + std::to_string(round), damaged});
  }
}

TEST_F(DamagedStore, LosesTheEntryThatCannotBeReadAndNoOther) {
  const char* const damages[] = {
      "UPDATE entries SET value = 16 WHERE entry = '100'",
      "UPDATE entries SET value = CAST(value AS BLOB) WHERE entry = '200'",
      R"(INSERT INTO defaults VALUES('notes', 'dictionarx', NULL)
         ON CONFLICT DO UPDATE SET type = excluded.type)"};
  auto expected = notes;
  expected.erase("100");
  for (const char* damage : damages) {
    SCOPED_TRACE(damage);
    const auto before = setAsideFiles().size();
    runSql(damage);
    EXPECT_TRUE(open()->dictionary("notes") == expected);
    EXPECT_EQ(setAsideFiles().size(), before + 1);
    expected["new"] = damage;
    open()->setEntry("notes", "new", damage);
    EXPECT_TRUE(open()->dictionary("notes") == expected);
  }
}

TEST_F(DamagedStore, SetsAsideADatabaseOfAnotherShape) {
  runSql("DROP TABLE defaults; CREATE TABLE defaults(name, content)");
  setBytes(file().string() + "-wal", "log");
  const auto store = open();
  EXPECT_EQ(store->value("theme"), std::nullopt);
  ASSERT_EQ(setAsideFiles().size(), 1U);
  EXPECT_EQ(bytes(setAsideFiles().front().string() + "-wal"), "log");
}

TEST_F(DamagedStore, WritesAllAnewAfterDamageWhileItIsOpen) {
  const auto store = open();
  setBytes(file(), std::string(std::filesystem::file_size(file()), '\xa5'));
  for (int day = 100; day < 465; ++day)
    store->setEntry("notes", std::to_string(day), "changed");
  store->setValue("written", true);
  EXPECT_EQ(setAsideFiles().size(), 1U);
  const auto later = open();
  EXPECT_EQ(later->dictionary("notes"), store->dictionary("notes"));
  EXPECT_EQ(later->dictionary("notes")->size(), 365U);
  EXPECT_THAT(later->string("theme"), Optional("dark"s));
}

}  // namespace
}  // namespace Hilalor::Desktop
