#include "desktop/store/FileStamp.hpp"

#include <sys/stat.h>

namespace Hilalor::Desktop {

std::optional<FileStamp> FileStamp::of(const std::filesystem::path& file) {
  struct stat status {};
  if (stat(file.c_str(), &status) != 0) return std::nullopt;
  constexpr std::int64_t kSecond = 1'000'000'000;
  return FileStamp{.device = status.st_dev,
                   .id = status.st_ino,
                   .size = status.st_size,
                   .changedNanoseconds = status.st_mtim.tv_sec * kSecond + status.st_mtim.tv_nsec};
}

std::filesystem::path logOf(const std::filesystem::path& database) {
  return database.string() + "-wal";
}

bool hasLog(const std::filesystem::path& database) {
  const auto log = FileStamp::of(logOf(database));
  return log && log->size > 0;
}

}  // namespace Hilalor::Desktop
