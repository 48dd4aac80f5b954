#include "desktop/diagnosis/StoreDiagnosis.hpp"

#include <unistd.h>

#include <system_error>

#include "desktop/store/DefaultsReader.hpp"
#include "desktop/store/SqliteConnection.hpp"

namespace Hilalor::Desktop {
namespace {

namespace files = std::filesystem;

/// A look may fall into the very moment in which the program begins or folds its log.
constexpr int kLooks = 3;

// 0 where there is no such file.
std::uintmax_t sizeOf(const files::path& file) {
  std::error_code error;
  const auto size = files::file_size(file, error);
  return error ? 0 : size;
}

files::path logOf(const files::path& file) {
  return file.string() + "-wal";
}

std::string kilobytes(std::uintmax_t bytes) {
  return std::to_string((bytes + 1023) / 1024) + " kB";
}

int look(const files::path& file) {
  using Access = SqliteConnection::Access;
  const bool hasLog = sizeOf(logOf(file)) > 0;
  const auto connection =
      SqliteConnection::open(file, hasLog ? Access::observer : Access::snapshot);
  if (!connection) return SQLITE_CANTOPEN;
  connection->keepLogOnClose();
  const int status = checkSoundness(*connection);
  DefaultsContent content;
  return status == SQLITE_OK ? loadContent(*connection, content) : status;
}

std::string conditionOf(const files::path& file) {
  std::error_code error;
  if (!files::exists(file, error)) return "none yet";
  if (access(file.c_str(), R_OK) != 0) return "may not be read";
  int status = look(file);
  for (int i = 1; i < kLooks && status != SQLITE_OK; ++i)
    status = look(file);
  switch (status) {
    case SQLITE_OK:
      return "readable";
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return "damaged";
    default:
      return std::string("cannot be read: ") + sqlite3_errstr(status);
  }
}

std::size_t countBeside(const files::path& file, const std::string& mark) {
  std::size_t count = 0;
  std::error_code error;
  // A range would throw where a damaged disk gives no next entry.
  for (files::directory_iterator at(file.parent_path(), error), end; at != end;
       at.increment(error)) {
    if (at->path().filename().string().starts_with(file.stem().string() + mark)) ++count;
  }
  return count;
}

std::string conditionOfFolder(const files::path& folder) {
  std::error_code error;
  if (!files::exists(folder, error)) return "none yet";
  const std::string begin =
      access(folder.c_str(), W_OK) == 0 ? "can be written" : "cannot be written";
  const auto space = files::space(folder, error);
  return error ? begin
               : begin + ", " + std::to_string(space.available / (1024 * 1024)) + " MB free";
}

}  // namespace

void diagnoseStore(const files::path& file, const Tell& tell) {
  tell("store", file.string() + ": " + conditionOf(file) + ", " + kilobytes(sizeOf(file)) +
                    ", log " + kilobytes(sizeOf(logOf(file))));
  tell("store's folder", conditionOfFolder(file.parent_path()));
  tell("set aside", std::to_string(countBeside(file, ".damaged-")) + " damaged, " +
                        std::to_string(countBeside(file, ".replaced-")) + " replaced");
}

}  // namespace Hilalor::Desktop
