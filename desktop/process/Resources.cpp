#include "desktop/process/Resources.hpp"

#include "desktop/process/BesideProgram.hpp"

namespace Hilalor::Desktop {

std::filesystem::path resourceFolder() {
  return besideProgram(HILALOR_INSTALLED_RESOURCES);
}

}  // namespace Hilalor::Desktop
