#pragma once

#include <sys/auxv.h>

#include <filesystem>
#include <system_error>

namespace Hilalor::Desktop {

/// The file of the running program; by the path it was started with where no /proc is mounted.
[[nodiscard]] inline std::filesystem::path programFile() {
  std::error_code error;
  const auto file = std::filesystem::read_symlink("/proc/self/exe", error);
  if (!error) return file;
  // The kernel hands this text to every program and leaves it in place: never null, never freed.
  return std::filesystem::canonical(reinterpret_cast<const char*>(getauxval(AT_EXECFN)), error);
}

/// What lies at that path from the folder of the running program, as it does where the program is
/// installed; for programs of a build tree, which lie deeper, from a folder above. Empty where
/// there is nothing.
[[nodiscard]] inline std::filesystem::path besideProgram(const std::filesystem::path& relative) {
  std::error_code error;
  auto folder = programFile().parent_path();
  while (folder.has_relative_path()) {
    auto found = (folder / relative).lexically_normal();
    if (std::filesystem::exists(found, error)) return found;
    folder = folder.parent_path();
  }
  return {};
}

}  // namespace Hilalor::Desktop
