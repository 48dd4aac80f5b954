#include "desktop/store/UserFolders.hpp"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

#include "desktop/store/SqliteDefaultsStore.hpp"

namespace Hilalor::Desktop {
namespace {

TEST(UserFolders, AreThoseOfTheEnvironmentElseInTheUsersHome) {
  const std::filesystem::path listed = getpwuid(getuid())->pw_dir;
  const struct {
    const char* folders;  // Of XDG_CONFIG_HOME and XDG_DATA_HOME.
    const char* home;
    std::filesystem::path config;
    std::filesystem::path data;
  } cases[] = {
      {"/some/where", "/home/someone", "/some/where", "/some/where"},
      {"not/absolute", "/home/someone", "/home/someone/.config", "/home/someone/.local/share"},
      {"", "not/absolute", listed / ".config", listed / ".local/share"},
      {nullptr, nullptr, listed / ".config", listed / ".local/share"},
  };
  const auto put = [](const char* name, const char* value) {
    value != nullptr ? setenv(name, value, 1) : unsetenv(name);
  };
  for (const auto& [folders, home, config, data] : cases) {
    SCOPED_TRACE(config);
    put("XDG_CONFIG_HOME", folders);
    put("XDG_DATA_HOME", folders);
    put("HOME", home);
    EXPECT_EQ(userConfigFolder(), config);
    EXPECT_EQ(userDataFolder(), data);
    EXPECT_EQ(SqliteDefaultsStore::userFile(), config / "hilalor/defaults.sqlite");
  }
}

}  // namespace
}  // namespace Hilalor::Desktop
