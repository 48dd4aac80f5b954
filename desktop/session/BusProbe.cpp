#include "desktop/session/BusProbe.hpp"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDBusConnection>
#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string_view>
#include <tuple>

namespace Hilalor::Desktop {
namespace {

/// A bus answers within a millisecond, a busy machine's within a few hundred.
constexpr std::chrono::milliseconds kPatienceAtStart{700};
constexpr const char* kSystemBus = "unix:path=/run/dbus/system_bus_socket";
constexpr const char* kNowhere = "unix:path=/nonexistent";

std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

// "%2f" is "/".
std::string unescaped(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%' || i + 2 >= text.size()) {
      plain += text[i];
      continue;
    }
    plain +=
        static_cast<char>(std::strtol(std::string(text.substr(i + 1, 2)).c_str(), nullptr, 16));
    i += 2;
  }
  return plain;
}

// The value of a key of the first address, "unix:path=/run/user/1000/bus,guid=...".
std::optional<std::string> partOf(std::string_view address, std::string_view key) {
  constexpr std::string_view kUnix = "unix:";
  address = address.substr(0, address.find(';'));
  if (!address.starts_with(kUnix)) return std::nullopt;
  address.remove_prefix(kUnix.size());
  while (!address.empty()) {
    const auto pair = address.substr(0, address.find(','));
    const auto equals = pair.find('=');
    if (pair.substr(0, equals) == key && equals != std::string_view::npos) {
      return unescaped(pair.substr(equals + 1));
    }
    address.remove_prefix(std::min(address.size(), pair.size() + 1));
  }
  return std::nullopt;
}

// The name of the bus's socket; one without a file begins with a nul.
std::optional<std::string> socketName(const std::string& address) {
  if (auto path = partOf(address, "path")) return path;
  if (const auto name = partOf(address, "abstract")) return std::string(1, '\0') + *name;
  return std::nullopt;
}

class Socket {
 public:
  Socket() : handle_(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {}
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;
  ~Socket() {
    if (handle_ >= 0) close(handle_);
  }

  [[nodiscard]] bool connectTo(const std::string& name) const {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (name.size() >= sizeof address.sun_path) return false;
    std::ranges::copy(name, address.sun_path);
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
    return connect(handle_, reinterpret_cast<const sockaddr*>(&address), size) == 0;
  }

  [[nodiscard]] bool say(std::string_view words) const {
    return send(handle_, words.data(), words.size(), MSG_NOSIGNAL) ==
           static_cast<ssize_t>(words.size());
  }

  [[nodiscard]] bool hears(std::chrono::milliseconds within) const {
    pollfd waiting{handle_, POLLIN, 0};
    return poll(&waiting, 1, static_cast<int>(within.count())) == 1;
  }

 private:
  int handle_;
};

}  // namespace

bool busAnswers(const std::string& address, std::chrono::milliseconds within) {
  const auto name = socketName(address);
  if (!name) return !address.empty();
  const Socket socket;
  // Any word back will do, a refusal as well.
  return socket.connectTo(*name) && socket.say(std::string_view("\0AUTH\r\n", 7)) &&
         socket.hears(within);
}

std::string sessionBusAddress() {
  if (auto address = variable("DBUS_SESSION_BUS_ADDRESS"); !address.empty()) return address;
  const auto folder = variable("XDG_RUNTIME_DIR");
  std::error_code error;
  const bool hasBus = !folder.empty() && std::filesystem::exists(folder + "/bus", error);
  return hasBus ? "unix:path=" + folder + "/bus" : "";
}

std::string systemBusAddress() {
  const auto address = variable("DBUS_SYSTEM_BUS_ADDRESS");
  return address.empty() ? kSystemBus : address;
}

SilentBusesHidden::SilentBusesHidden() {
  hide(session_, sessionBusAddress());
  hide(system_, systemBusAddress());
}

SilentBusesHidden::~SilentBusesHidden() {
  // The library keeps the address that it sees first.
  if (session_.isHidden) std::ignore = QDBusConnection::sessionBus();
  if (system_.isHidden) std::ignore = QDBusConnection::systemBus();
  bringBack(session_);
  bringBack(system_);
}

void SilentBusesHidden::hide(Hidden& bus, const std::string& address) {
  if (address.empty() || busAnswers(address, kPatienceAtStart)) return;
  bus.isHidden = true;
  bus.value = variable(bus.variable);
  setenv(bus.variable, kNowhere, 1);
}

void SilentBusesHidden::bringBack(const Hidden& bus) {
  if (!bus.isHidden) return;
  if (bus.value.empty()) {
    unsetenv(bus.variable);
  } else {
    setenv(bus.variable, bus.value.c_str(), 1);
  }
}

}  // namespace Hilalor::Desktop
