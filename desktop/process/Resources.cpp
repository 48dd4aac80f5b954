#include "desktop/process/Resources.hpp"

#include <cstdlib>

#include "desktop/process/BesideProgram.hpp"

namespace Hilalor::Desktop {

std::filesystem::path resourceFolder() {
  return besideProgram(HILALOR_INSTALLED_RESOURCES);
}

std::filesystem::path userDataFolder() {
  const char* data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && *data == '/') return data;
  const char* home = std::getenv("HOME");
  return std::filesystem::path(home != nullptr ? home : "/") / ".local/share";
}

}  // namespace Hilalor::Desktop
