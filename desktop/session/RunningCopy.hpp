#pragma once

#include <QDBusConnection>
#include <QString>
#include <string_view>

namespace Hilalor::Desktop {

/// Where the running copy of the program is on the session bus, and the interface by which desktops
/// talk to programs.
inline constexpr const char* kBusPath = "/org/hilalor/Hilalor";
inline constexpr const char* kApplicationInterface = "org.freedesktop.Application";

/// What the running copy can be asked for by name, besides to show itself.
inline constexpr const char* kSettingsAction = "settings";
inline constexpr const char* kQuitAction = "quit";

/// What allows a program to come to the front, as the one that started it said: on the bus and in
/// the environment (xdg-activation).
inline const QString kTokenKey = QStringLiteral("activation-token");
inline constexpr const char* kToken = "XDG_ACTIVATION_TOKEN";

/// What becomes of a word to the running copy.
enum class CopyAnswer {
  done,
  isEnding,  ///< There is none, or it answers no more and will let go of the name.
  none,      ///< It does not answer within a second.
};

/// Asks the running copy to show itself. Waits for the answer.
[[nodiscard]] CopyAnswer showRunningCopy(const QDBusConnection& bus);

/// Asks the running copy for "panel", "settings" or "quit", and starts none. Waits for the answer,
/// a few seconds where the bus gives none; needs no display.
[[nodiscard]] CopyAnswer tellRunningCopy(std::string_view word);

}  // namespace Hilalor::Desktop
