#include "desktop/store/UserFolders.hpp"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace Hilalor::Desktop {
namespace {

std::filesystem::path absolutePath(const char* variable) {
  const char* text = std::getenv(variable);
  const std::filesystem::path path(text != nullptr ? text : "");
  return path.is_absolute() ? path : std::filesystem::path();
}

std::filesystem::path homeFolder() {
  if (auto home = absolutePath("HOME"); !home.empty()) return home;
  const passwd* user = getpwuid(getuid());
  return user != nullptr ? user->pw_dir : "/";
}

std::filesystem::path folder(const char* variable, const char* inHome) {
  const auto named = absolutePath(variable);
  return named.empty() ? homeFolder() / inHome : named;
}

}  // namespace

std::filesystem::path userConfigFolder() {
  return folder("XDG_CONFIG_HOME", ".config");
}

std::filesystem::path userDataFolder() {
  return folder("XDG_DATA_HOME", ".local/share");
}

std::filesystem::path userRuntimeFolder() {
  return absolutePath("XDG_RUNTIME_DIR");
}

}  // namespace Hilalor::Desktop
