#include "desktop/diagnosis/SessionDiagnosis.hpp"

#include <sys/utsname.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "datetime/TimeZone.hpp"

namespace Hilalor::Desktop {
namespace {

std::string variable(const char* name, const char* without = "unset") {
  const char* value = std::getenv(name);
  return value != nullptr && *value != '\0' ? value : without;
}

std::string systemName() {
  constexpr std::string_view kName = "PRETTY_NAME=\"";
  std::ifstream file("/etc/os-release");
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(kName)) return line.substr(kName.size(), line.size() - kName.size() - 1);
  }
  return "unknown";
}

// "+03:00".
std::string offset(int seconds) {
  std::array<char, 16> text{};
  const int minutes = std::abs(seconds) / 60;
  std::snprintf(text.data(), text.size(), "%c%02d:%02d", seconds < 0 ? '-' : '+', minutes / 60,
                minutes % 60);
  return text.data();
}

std::string minuteInUTC(Date now) {
  std::array<char, 32> text{};
  const auto seconds = static_cast<std::time_t>(now.secondsSince1970);
  std::tm parts{};
  std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", gmtime_r(&seconds, &parts));
  return text.data();
}

}  // namespace

void diagnoseSession(Date now, const Tell& tell) {
  utsname machine{};
  uname(&machine);
  std::error_code error;
  const bool isConfined = std::filesystem::exists("/.flatpak-info", error);
  tell("system", systemName() + ", " + machine.machine + (isConfined ? ", in a Flatpak" : ""));
  tell("session", variable("XDG_SESSION_TYPE") + ", desktop " + variable("XDG_CURRENT_DESKTOP"));
  tell("Qt's choices", "platform " + variable("QT_QPA_PLATFORM") + ", scale " +
                           variable("QT_SCALE_FACTOR") + ", theme " +
                           variable("QT_QPA_PLATFORMTHEME"));
  tell("language", variable("LC_ALL", variable("LC_TIME", variable("LANG").c_str()).c_str()));
  tell("clock", minuteInUTC(now) + " UTC");
  const auto zone = TimeZone::current();
  tell("time zone", zone.identifier() + ", UTC" + offset(zone.secondsFromUTC(now)) +
                        (std::getenv("TZ") != nullptr ? ", from the variable TZ" : ""));
}

}  // namespace Hilalor::Desktop
