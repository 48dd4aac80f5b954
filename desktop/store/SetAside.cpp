#include "desktop/store/SetAside.hpp"

#include <fcntl.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <string>

namespace Hilalor::Desktop {
namespace {

// The database comes last: as long as it lies under its name, its logs are looked for as well.
constexpr std::array<const char*, 3> kParts{"-wal", "-journal", ""};

std::filesystem::path part(const std::filesystem::path& file, const char* suffix) {
  return file.string() + suffix;
}

bool isTaken(const std::filesystem::path& file) {
  std::error_code error;
  return std::filesystem::exists(std::filesystem::symlink_status(file, error));
}

bool renameToFree(const std::filesystem::path& from, const std::filesystem::path& to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
  // Some network file systems cannot promise not to replace; the name was free a moment ago.
  return errno == EINVAL && std::rename(from.c_str(), to.c_str()) == 0;
}

}  // namespace

std::filesystem::path nameAside(const std::filesystem::path& file, std::string_view why) {
  for (int number = 1;; ++number) {
    auto name = file;
    name.replace_filename(file.stem().string() + "." + std::string(why) + "-" +
                          std::to_string(number) + file.extension().string());
    const auto taken = [&](const char* suffix) { return isTaken(part(name, suffix)); };
    if (std::none_of(kParts.begin(), kParts.end(), taken)) return name;
  }
}

bool setAside(const std::filesystem::path& file) {
  const auto name = nameAside(file, "damaged");
  return std::all_of(kParts.begin(), kParts.end(), [&](const char* suffix) {
    return !isTaken(part(file, suffix)) || renameToFree(part(file, suffix), part(name, suffix));
  });
}

}  // namespace Hilalor::Desktop
