#include "desktop/store/DefaultsView.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <map>

#include "tests/desktop/store/StoreFile.hpp"
#include "tests/fakes/ChildProcess.hpp"

namespace Hilalor::Desktop {
namespace {

class DefaultsViewTest : public StoreFile {
 protected:
  using Files = std::map<std::filesystem::path, std::string>;

  [[nodiscard]] Files files() const {
    Files found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path()))
      if (entry.is_regular_file()) found[entry.path()] = bytes(entry.path());
    return found;
  }

  /// A number under a key, seen by one who leaves no trace.
  [[nodiscard]] std::optional<std::int64_t> seen(const char* key) const {
    const auto before = files();
    const auto number = DefaultsView(file()).integer(key);
    EXPECT_EQ(files(), before);
    return number;
  }
};

TEST_F(DefaultsViewTest, SeesWhatTheProgramWroteWhateverBecameOfIt) {
  EXPECT_EQ(seen("first"), std::nullopt) << "no file";
  open()->setValue("first", std::int64_t{1});
  EXPECT_EQ(seen("first"), 1) << "no program runs";
  {
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    ChildProcess program([&] {
      const auto store = open();
      store->setValue("second", std::int64_t{2});
      [[maybe_unused]] const auto told = ::write(pipe[1], "x", 1);
      pause();
    });
    std::array<char, 1> told{};
    ASSERT_EQ(::read(pipe[0], told.data(), 1), 1);
    EXPECT_EQ(seen("second"), 2) << "the program runs";
    program.kill();
  }
  EXPECT_EQ(seen("second"), 2) << "the program was killed";
  std::filesystem::remove(file().string() + "-shm");
  EXPECT_EQ(seen("first"), 1) << "the log has no index";
}

TEST_F(DefaultsViewTest, SeesWhatIsLeftOfALockedAndOfADamagedFile) {
  open()->setValue("first", std::int64_t{1});
  {
    const auto other = SqliteConnection::open(file(), SqliteConnection::Access::readWrite);
    ASSERT_EQ(other->execute("PRAGMA journal_mode = DELETE; BEGIN EXCLUSIVE"), SQLITE_OK);
    EXPECT_EQ(seen("first"), 1) << "locked";
  }
  auto damaged = bytes(file());
  damaged[0] = 'x';
  setBytes(file(), damaged);
  EXPECT_EQ(seen("first"), 1) << "damaged header";
  setBytes(file(), "no database");
  EXPECT_EQ(seen("first"), std::nullopt);
}

TEST_F(DefaultsViewTest, KeepsWhatIsSetInMemory) {
  open()->setValue("first", std::int64_t{1});
  DefaultsView view(file());
  view.setValue("first", std::int64_t{5});
  EXPECT_EQ(view.integer("first"), 5);
  EXPECT_EQ(seen("first"), 1);
}

}  // namespace
}  // namespace Hilalor::Desktop
