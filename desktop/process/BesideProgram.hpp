#pragma once

#include <filesystem>
#include <system_error>

namespace Hilalor::Desktop {

/// What lies at that path from the folder of the running program, as it does where the program is
/// installed; for programs of a build tree, which lie deeper, from a folder above. Empty where
/// there is nothing.
[[nodiscard]] inline std::filesystem::path besideProgram(const std::filesystem::path& relative) {
  std::error_code error;
  auto folder = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
  while (folder.has_relative_path()) {
    auto found = (folder / relative).lexically_normal();
    if (std::filesystem::exists(found, error)) return found;
    folder = folder.parent_path();
  }
  return {};
}

}  // namespace Hilalor::Desktop
