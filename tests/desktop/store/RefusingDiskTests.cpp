#include <gmock/gmock.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <functional>
#include <string>

#include "tests/desktop/store/StoreFile.hpp"
#include "tests/fakes/ChildProcess.hpp"

namespace Hilalor::Desktop {
namespace {

using namespace std::string_literals;
using testing::Optional;

class RefusingDisk : public StoreFile {
 protected:
  // Root may write where it is forbidden; another user may not.
  static void becomeOrdinaryUser() {
    if (geteuid() != 0) return;
    constexpr uid_t kNobody = 65534;
    ASSERT_EQ(setresgid(kNobody, kNobody, kNobody), 0);
    ASSERT_EQ(setresuid(kNobody, kNobody, kNobody), 0);
  }

  void ownByEveryone() const {
    namespace fs = std::filesystem;
    fs::permissions(folder.path(), fs::perms::all);
    for (const auto& entry : fs::recursive_directory_iterator(folder.path()))
      fs::permissions(entry, fs::perms::all);
  }

  void protect(std::filesystem::perms ofFolder, std::filesystem::perms ofFile) const {
    std::filesystem::permissions(file(), ofFile);
    std::filesystem::permissions(file().parent_path(), ofFolder);
  }

  // A disk that can be filled, for this process alone; false where the machine does not let us have
  // one.
  [[nodiscard]] bool mountSmallDisk() const {
    const bool isRoot = geteuid() == 0;
    if (unshare(CLONE_NEWNS | (isRoot ? 0 : CLONE_NEWUSER)) != 0) return false;
    if (mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) return false;
    return mount("tmpfs", folder.path().c_str(), "tmpfs", 0, "size=512k") == 0;
  }

  void onSmallDisk(const std::function<void()>& body) const {
    constexpr int kNoDisk = 77;
    ChildProcess child([&] {
      if (!mountSmallDisk()) _exit(kNoDisk);
      body();
    });
    const int status = child.exitStatus();
    if (status == kNoDisk) GTEST_SKIP() << "no right to mount a small disk";
    EXPECT_EQ(status, 0);
  }

  void fillDisk() const { setBytes(filler(), std::string(1 << 20, 'x')); }
  void makeRoom() const { std::filesystem::remove(filler()); }

 private:
  [[nodiscard]] std::filesystem::path filler() const { return folder.path() / "filler"; }
};

TEST_F(RefusingDisk, ReadsAndRemembersWhereItMayNotWrite) {
  using std::filesystem::perms;
  constexpr auto kReadFolder =
      perms::owner_read | perms::owner_exec | perms::others_read | perms::others_exec;
  constexpr auto kReadFile = perms::owner_read | perms::others_read;
  const struct {
    const char* name;
    perms folder;
    perms file;
  } cases[] = {{"folder", kReadFolder, perms::all},
               {"file", perms::all, kReadFile},
               {"both", kReadFolder, kReadFile}};
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    open()->setValue("key", "stored"s);
    ownByEveryone();
    protect(test.folder, test.file);
    ChildProcess child([&] {
      becomeOrdinaryUser();
      const auto store = open();
      EXPECT_THAT(store->string("key"), Optional("stored"s));
      store->setValue("other", "remembered"s);
      EXPECT_THAT(store->string("other"), Optional("remembered"s));
      EXPECT_THAT(open()->string("key"), Optional("stored"s));
      EXPECT_EQ(open()->string("other"), std::nullopt);
    });
    EXPECT_EQ(child.exitStatus(), 0);
    ownByEveryone();
  }
}

TEST_F(RefusingDisk, WritesOnceItMay) {
  open()->setValue("key", "stored"s);
  ownByEveryone();
  ChildProcess child([&] {
    becomeOrdinaryUser();
    const auto other = folder.path() / "other" / "defaults.sqlite";
    std::filesystem::create_directory(other.parent_path());
    std::filesystem::permissions(other.parent_path(), std::filesystem::perms::none);
    SqliteDefaultsStore store(other, loop);
    store.setValue("key", "waiting"s);
    std::filesystem::permissions(other.parent_path(), std::filesystem::perms::owner_all);
    EXPECT_FALSE(std::filesystem::exists(other));
    EXPECT_FALSE(store.isKept.value());
    loop.advance(Seconds(1));
    EXPECT_TRUE(store.isKept.value());
    EXPECT_THAT(SqliteDefaultsStore(other, loop).string("key"), Optional("waiting"s));
  });
  EXPECT_EQ(child.exitStatus(), 0);
}

TEST_F(RefusingDisk, ReadsAndLosesNothingOnAFullDisk) {
  onSmallDisk([&] {
    open()->setValue("theme", "dark"s);
    fillDisk();
    EXPECT_THAT(open()->string("theme"), Optional("dark"s));
    makeRoom();
    const auto store = open();
    store->setEntry("notes", "2025-03-15", "small");
    fillDisk();
    store->setEntry("notes", "2025-03-16", std::string(100'000, 'n'));
    store->setValue("theme", "light"s);
    EXPECT_THAT(store->string("theme"), Optional("light"s));
    EXPECT_THAT(open()->string("theme"), Optional("dark"s));
    EXPECT_EQ(open()->dictionary("notes"), (TextDictionary{{"2025-03-15", "small"}}));

    makeRoom();
    loop.advance(Seconds(4));
    EXPECT_THAT(open()->string("theme"), Optional("light"s));
    EXPECT_EQ(open()->dictionary("notes")->size(), 2U);
  });
}

TEST_F(RefusingDisk, WritesWhatItSavedOfADamagedFileOnceThereIsRoom) {
  onSmallDisk([&] {
    open()->setValue("theme", "dark"s);
    for (int day = 10; day < 40; ++day)
      open()->setEntry("notes", std::to_string(day), std::string(1500, 'n'));
    auto damaged = bytes(file());
    damaged.replace(damaged.size() / 2 / 4096 * 4096, 4096, 4096, '\xa5');
    setBytes(file(), damaged);
    fillDisk();
    const auto store = open();
    EXPECT_THAT(store->string("theme"), Optional("dark"s));
    makeRoom();
    loop.advance(Seconds(1));
    EXPECT_THAT(open()->string("theme"), Optional("dark"s));
    EXPECT_GT(open()->dictionary("notes")->size(), 20U);
  });
}

}  // namespace
}  // namespace Hilalor::Desktop
