#include "desktop/Resources.hpp"

#include <cstdlib>

#include "desktop/BesideProgram.hpp"

namespace Hilalor {

std::filesystem::path resourceFolder() {
  return besideProgram(HILALOR_INSTALLED_RESOURCES);
}

std::filesystem::path userDataFolder() {
  const char* data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && *data == '/') return data;
  const char* home = std::getenv("HOME");
  return std::filesystem::path(home != nullptr ? home : "/") / ".local/share";
}

}  // namespace Hilalor
