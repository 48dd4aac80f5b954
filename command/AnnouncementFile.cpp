#include "command/AnnouncementFile.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <system_error>

namespace Hilalor {
namespace {

/// On the whole file.
struct flock lockOf(short type) {
  struct flock lock {};
  lock.l_type = type;
  lock.l_whence = SEEK_SET;
  return lock;
}

}  // namespace

AnnouncementKeeper::AnnouncementKeeper(const std::filesystem::path& file) : file_(-1) {
  namespace files = std::filesystem;
  if (file.empty()) return;
  std::error_code error;
  files::create_directories(file.parent_path(), error);
  files::permissions(file.parent_path(), files::perms::owner_all, error);
  file_ = open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
  keep(std::nullopt);
  auto lock = lockOf(F_WRLCK);
  fcntl(file_, F_OFD_SETLK, &lock);
}

AnnouncementKeeper::~AnnouncementKeeper() {
  if (file_ >= 0) close(file_);
}

void AnnouncementKeeper::keep(const std::optional<std::string>& title) const {
  // In one step with its end: a reader in between finds no rest of a longer one behind it.
  const auto text = title.value_or("");
  if (pwrite(file_, text.c_str(), text.size() + 1, 0) < 0) return;
}

std::optional<std::string> keptAnnouncement(const std::filesystem::path& file) {
  const int opened = open(file.c_str(), O_RDONLY | O_CLOEXEC);
  if (opened < 0) return std::nullopt;
  auto lock = lockOf(F_RDLCK);
  const bool isHeld = fcntl(opened, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
  std::array<char, 256> text{};
  const auto size = read(opened, text.data(), text.size());
  close(opened);
  if (!isHeld || size <= 0 || text.front() == '\0') return std::nullopt;
  return std::string(text.data(), strnlen(text.data(), static_cast<std::size_t>(size)));
}

}  // namespace Hilalor
