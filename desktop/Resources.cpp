#include "desktop/Resources.hpp"

#include <cstdlib>

namespace Hilalor {

std::filesystem::path resourceFolder() {
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  if (!error) {
    auto installed = (program.parent_path() / HILALOR_INSTALLED_RESOURCES).lexically_normal();
    if (std::filesystem::is_directory(installed, error)) return installed;
  }
  return HILALOR_SOURCE_RESOURCES;
}

std::filesystem::path userDataFolder() {
  const char* data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && *data == '/') return data;
  const char* home = std::getenv("HOME");
  return std::filesystem::path(home != nullptr ? home : "/") / ".local/share";
}

}  // namespace Hilalor
