#pragma once

#include <chrono>
#include <string>

namespace Hilalor::Desktop {

/// Whether a message bus at that address (as D-Bus writes them) takes part in the
/// first words of a connection within the time. Buses at addresses other than a socket of this
/// machine are taken to answer. Any thread.
[[nodiscard]] bool busAnswers(const std::string& address, std::chrono::milliseconds within);

/// The address of the user's bus; empty where the session does not say where it is. Any thread.
[[nodiscard]] std::string sessionBusAddress();

/// The address of the machine's bus. Any thread.
[[nodiscard]] std::string systemBusAddress();

/// Keeps Qt, which waits for the buses in its own start, from waiting a minute for one that does
/// not answer: Qt never sees such a bus (see SessionBus, LateSystemBus). To be made before the
/// application object, and to go right after it. Main thread.
class SilentBusesHidden {
 public:
  SilentBusesHidden();
  SilentBusesHidden(const SilentBusesHidden&) = delete;
  SilentBusesHidden& operator=(const SilentBusesHidden&) = delete;
  /// Programs that are started later find the addresses as they were.
  ~SilentBusesHidden();

 private:
  struct Hidden {
    const char* variable;
    std::string value;  ///< Empty where the variable was not set.
    bool isHidden = false;
  };
  Hidden session_{"DBUS_SESSION_BUS_ADDRESS", {}};
  Hidden system_{"DBUS_SYSTEM_BUS_ADDRESS", {}};

  static void hide(Hidden& bus, const std::string& address);
  static void bringBack(const Hidden& bus);
};

}  // namespace Hilalor::Desktop
