#include <gmock/gmock.h>

#include <algorithm>
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
    TextDictionary notes;
    for (int day = 100; day < 465; ++day)
      notes[std::to_string(day)] = std::string(1500, 'n');
    const auto store = open();
    store->setDictionary("notes", notes);
    store->setValue("theme", "dark"s);
  }

  // The store works over whatever lies there, and what was damaged lies unchanged beside it.
  void expectWorksAfter(const std::string& damaged) {
    std::filesystem::remove_all(file().parent_path());
    setBytes(file(), damaged);
    {
      const auto store = open();
      store->setValue("written", true);
      store->setEntry("notes", "500", "new");
    }
    const auto store = open();
    EXPECT_THAT(store->boolean("written"), Optional(true));
    ASSERT_TRUE(store->dictionary("notes"));
    EXPECT_EQ(store->dictionary("notes")->at("500"), "new");
    const auto aside = setAsideFiles();
    if (!aside.empty()) {
      EXPECT_EQ(bytes(aside.front()), damaged);
    }
  }
};

TEST_F(DamagedStore, WorksAfterTruncationAnywhere) {
  const auto sound = bytes(file());
  ASSERT_GT(sound.size(), 100'000U);
  for (std::size_t size = 10; size < sound.size(); size += size < 600 ? 37 : 4093) {
    SCOPED_TRACE(size);
    expectWorksAfter(sound.substr(0, size));
    EXPECT_EQ(setAsideFiles().size(), 1U);
  }
}

TEST_F(DamagedStore, WorksAfterRandomBytesAnywhere) {
  const auto sound = bytes(file());
  std::mt19937 random(1);
  const auto randomByte = [&] { return static_cast<char>(random()); };
  for (int round = 0; round < 60; ++round) {
    SCOPED_TRACE(round);
    auto damaged = sound;
    const bool whole = round % 10 == 0;
    const auto start = whole ? 0 : random() % damaged.size();
    const auto end = whole ? damaged.size() : std::min(start + 200, damaged.size());
    std::generate(damaged.begin() + static_cast<std::ptrdiff_t>(start),
                  damaged.begin() + static_cast<std::ptrdiff_t>(end), randomByte);
    expectWorksAfter(damaged);
  }
}

TEST_F(DamagedStore, KeepsWhatCanStillBeRead) {
  auto damaged = bytes(file());
  const auto page = damaged.size() / 2 / 4096 * 4096;
  damaged.replace(page, 4096, 4096, '\xa5');
  setBytes(file(), damaged);
  const auto store = open();
  EXPECT_THAT(store->string("theme"), Optional("dark"s));
  const auto notes = store->dictionary("notes");
  ASSERT_TRUE(notes);
  EXPECT_GT(notes->size(), 330U);
  EXPECT_EQ(open()->dictionary("notes"), notes);
}

TEST_F(DamagedStore, LosesNothingByOneWrongByteInTheHeader) {
  const auto sound = bytes(file());
  const auto notes = open()->dictionary("notes");
  for (std::size_t place = 0; place < 100; ++place) {
    SCOPED_TRACE(place);
    std::filesystem::remove_all(file().parent_path());
    auto damaged = sound;
    damaged[place] = static_cast<char>(~damaged[place]);
    setBytes(file(), damaged);
    const auto store = open();
    store->setValue("written", true);
    EXPECT_TRUE(store->isKept.value());
    // In print they would be long.
    EXPECT_TRUE(open()->dictionary("notes") == notes);
  }
}

TEST_F(DamagedStore, LosesTheEntryThatCannotBeReadAndNoOther) {
  const char* const damages[] = {
      "UPDATE entries SET value = 16 WHERE entry = '100'",
      "UPDATE entries SET value = CAST(value AS BLOB) WHERE entry = '200'",
      "INSERT INTO defaults VALUES('notes', 'dictionarx', NULL)"
      "  ON CONFLICT DO UPDATE SET type = excluded.type"};
  auto expected = *open()->dictionary("notes");
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

TEST_F(DamagedStore, SetsAsideUnderANameOfItsOwnEachTime) {
  for (const char* content : {"first", "second", "third"}) {
    std::filesystem::remove(file());
    setBytes(file(), content);
    open()->setValue("key", true);
  }
  std::vector<std::string> contents;
  for (const auto& aside : setAsideFiles())
    contents.push_back(bytes(aside));
  EXPECT_THAT(contents, testing::UnorderedElementsAre("first", "second", "third"));
}

TEST_F(DamagedStore, SetsAsideADatabaseOfAnotherShape) {
  runSql("DROP TABLE defaults; CREATE TABLE defaults(name, content)");
  const auto store = open();
  EXPECT_EQ(store->value("theme"), std::nullopt);
  EXPECT_EQ(setAsideFiles().size(), 1U);
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
