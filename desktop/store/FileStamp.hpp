#pragma once

#include <sys/types.h>

#include <cstdint>
#include <filesystem>
#include <optional>

namespace Hilalor::Desktop {

/// What tells a file that nobody else has touched from one that somebody has.
struct FileStamp {
  dev_t device = 0;
  ino_t id = 0;
  off_t size = 0;                       ///< In bytes.
  std::int64_t changedNanoseconds = 0;  ///< Of the last change of its bytes, since 1970.

  /// Of the file under that name; none where there is no file.
  [[nodiscard]] static std::optional<FileStamp> of(const std::filesystem::path& file);

  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// The write-ahead log of a database.
[[nodiscard]] std::filesystem::path logOf(const std::filesystem::path& database);

/// Whether there is such a log with anything in it.
[[nodiscard]] bool hasLog(const std::filesystem::path& database);

}  // namespace Hilalor::Desktop
