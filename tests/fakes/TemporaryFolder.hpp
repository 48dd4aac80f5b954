#pragma once

#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <system_error>

namespace Hilalor {

/// An empty folder of a test's own, gone with all its content at the end.
class TemporaryFolder {
 public:
  explicit TemporaryFolder(const std::filesystem::path& parent = fastest()) {
    std::string name = parent / "hilalor-XXXXXX";
    path_ = mkdtemp(name.data());
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
  }

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

 private:
  // In memory where the machine has room for files there: a disk's syncs take longer than the
  // tests.
  static std::filesystem::path fastest() {
    const std::filesystem::path inMemory = "/dev/shm";
    return access(inMemory.c_str(), W_OK) == 0 ? inMemory : std::filesystem::temp_directory_path();
  }

  std::filesystem::path path_;
};

}  // namespace Hilalor
