#include "desktop/store/PrivatePlace.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <string>
#include <system_error>

namespace Hilalor::Desktop {
namespace {

constexpr std::array<const char*, 4> kSuffixes{"", "-wal", "-shm", "-journal"};
constexpr mode_t kOthers = S_IRWXG | S_IRWXO;

void makeFolder(const std::filesystem::path& folder) {
  std::error_code error;
  if (folder.empty() || std::filesystem::exists(folder, error)) return;
  makeFolder(folder.parent_path());
  // The user's own, as the XDG base directories are.
  mkdir(folder.c_str(), S_IRWXU);
}

void hideFromOthers(const std::filesystem::path& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0 || (status.st_mode & kOthers) == 0) return;
  chmod(path.c_str(), status.st_mode & S_IRWXU);
}

}  // namespace

bool makePrivatePlace(const std::filesystem::path& file) {
  makeFolder(file.parent_path());
  if (!holdsFilesOnly(file)) return false;
  hideFromOthers(file.parent_path());
  // The database's logs take over what its own file allows.
  const int made = open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (made >= 0) close(made);
  for (const char* suffix : kSuffixes)
    hideFromOthers(file.string() + suffix);
  return true;
}

bool holdsFilesOnly(const std::filesystem::path& database) {
  return std::ranges::all_of(kSuffixes, [&](const char* suffix) {
    struct stat status {};
    const std::string name = database.string() + suffix;
    return stat(name.c_str(), &status) != 0 || S_ISREG(status.st_mode);
  });
}

}  // namespace Hilalor::Desktop
