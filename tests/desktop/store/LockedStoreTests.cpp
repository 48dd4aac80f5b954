#include <gmock/gmock.h>
#include <unistd.h>

#include <string>

#include "tests/desktop/store/StoreFile.hpp"
#include "tests/fakes/ChildProcess.hpp"

namespace Hilalor::Desktop {
namespace {

using namespace std::string_literals;
using testing::Optional;

/// A file that another program keeps locked while ours starts.
class LockedStore : public StoreFile {
 protected:
  // What a program that is killed leaves: notes in the file, their changes in its log alone.
  void SetUp() override {
    open()->setDictionary("notes", {{"1", "old"}, {"2", "taken out"}});
    ChildProcess child([&] {
      const auto store = open();
      store->setValue("locationMode", "manual"s);
      store->setEntry("notes", "1", "stored");
      store->setEntry("notes", "2", std::nullopt);
      store->setEntry("notes", "3", "stored");
      _exit(0);
    });
    ASSERT_EQ(child.exitStatus(), 0);
    ASSERT_GT(std::filesystem::file_size(file().string() + "-wal"), 0U);
    other_ = SqliteConnection::open(file(), SqliteConnection::Access::readWrite);
    ASSERT_EQ(other_->execute("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE"), SQLITE_OK);
  }

  void unlock() {
    other_->keepLogOnClose();
    other_.reset();
  }

 private:
  std::unique_ptr<SqliteConnection> other_;
};

TEST_F(LockedStore, IsReadAsSoonAsItCanBe) {
  const auto store = open();
  int told = 0;
  const auto subscription = store->cameIn.subscribe([&] { ++told; });
  EXPECT_FALSE(store->isRead());
  EXPECT_EQ(store->string("locationMode"), std::nullopt);
  loop.advance(Seconds(4));
  EXPECT_EQ(told, 0);
  unlock();
  loop.advance(Seconds(64));
  EXPECT_TRUE(store->isRead());
  EXPECT_EQ(told, 1);
  EXPECT_THAT(store->string("locationMode"), Optional("manual"s));
  EXPECT_EQ(store->dictionary("notes"), (TextDictionary{{"1", "stored"}, {"3", "stored"}}));
}

TEST_F(LockedStore, GivesWayToWhatWasWrittenMeanwhileAndToNothingElse) {
  const auto store = open();
  store->setEntry("notes", "3", "typed");
  store->setEntry("notes", "4", "typed");
  store->setEntry("notes", "4", std::nullopt);
  unlock();
  store->lookAgain();
  const TextDictionary expected{{"1", "stored"}, {"3", "typed"}};
  EXPECT_EQ(store->dictionary("notes"), expected);
  EXPECT_EQ(open()->dictionary("notes"), expected);
  EXPECT_THAT(open()->string("locationMode"), Optional("manual"s));
}

}  // namespace
}  // namespace Hilalor::Desktop
