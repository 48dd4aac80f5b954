#include "command/Wakes.hpp"

#include <poll.h>
#include <sys/inotify.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cmath>
#include <system_error>
#include <utility>

namespace Hilalor {
namespace {

constexpr std::uint32_t kFileChanges = IN_MODIFY | IN_CREATE | IN_DELETE | IN_MOVED_TO;

void setTimer(int timer, Date instant) {
  itimerspec when{};
  const double seconds = std::floor(instant.secondsSince1970);
  when.it_value.tv_sec = static_cast<time_t>(seconds);
  when.it_value.tv_nsec = static_cast<long>((instant.secondsSince1970 - seconds) * 1e9);
  timerfd_settime(timer, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &when, nullptr);
}

void empty(int descriptor) {
  std::array<char, 4096> bytes;
  while (read(descriptor, bytes.data(), bytes.size()) > 0) {
  }
}

}  // namespace

KernelWakes::KernelWakes(std::vector<std::filesystem::path> folders)
    : folders_(std::move(folders)),
      timer_(timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK)),
      changes_(inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) {}

KernelWakes::~KernelWakes() {
  close(timer_);
  close(changes_);
}

bool KernelWakes::sleepUntil(Date instant) {
  watchFolders();
  setTimer(timer_, instant);
  std::array<pollfd, 3> woken{{{timer_, POLLIN, 0}, {changes_, POLLIN, 0}, {STDOUT_FILENO, 0, 0}}};
  while (poll(woken.data(), woken.size(), -1) < 0) {
    if (errno != EINTR) return false;
  }
  empty(timer_);
  empty(changes_);
  return woken.back().revents == 0;
}

// A folder that is watched already is not watched twice.
void KernelWakes::watchFolders() const {
  std::error_code error;
  for (auto folder : folders_) {
    auto changes = kFileChanges;
    while (!std::filesystem::exists(folder, error) && folder.has_relative_path()) {
      folder = folder.parent_path();
      // Files of other programs in the folder do not matter here.
      changes = IN_CREATE | IN_MOVED_TO;
    }
    inotify_add_watch(changes_, folder.c_str(), changes);
  }
  inotify_add_watch(changes_, "/etc", IN_CREATE | IN_MOVED_TO);
}

}  // namespace Hilalor
