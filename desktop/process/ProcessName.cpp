#include "desktop/process/ProcessName.hpp"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>

namespace Hilalor::Desktop {

std::string processName(std::uint32_t process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/comm");
  std::string name;
  std::getline(file, name);
  return name;
}

std::string ownerOfSocket(const std::filesystem::path& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.native().size() >= sizeof address.sun_path) return {};
  std::ranges::copy(path.native(), address.sun_path);
  const int handle = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  ucred owner{};
  socklen_t size = sizeof owner;
  const bool isOwned =
      connect(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
      getsockopt(handle, SOL_SOCKET, SO_PEERCRED, &owner, &size) == 0;
  close(handle);
  return isOwned ? processName(static_cast<std::uint32_t>(owner.pid)) : std::string();
}

}  // namespace Hilalor::Desktop
