#include "desktop/session/AutostartEntry.hpp"

#include <QSaveFile>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string_view>
#include <system_error>
#include <utility>

#include "desktop/process/BesideProgram.hpp"
#include "desktop/process/ProgramId.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr std::string_view kGroup = "[Desktop Entry]";
constexpr std::string_view kHiddenLine = "Hidden=true";

std::filesystem::path fileIn(const std::filesystem::path& folder) {
  auto file = folder / kProgramId;
  return file += ".desktop";
}

std::optional<std::string> textOf(const std::filesystem::path& file) {
  std::ifstream stream(file);
  if (!stream) return std::nullopt;
  return std::string(std::istreambuf_iterator(stream), {});
}

/// "Hidden" is everybody's word; tools of several desktops write the other one.
bool switchesOff(const std::string& line) {
  return line == kHiddenLine || line == "X-GNOME-Autostart-enabled=false";
}

bool isSwitchedOff(const std::string& text) {
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);)
    if (switchesOff(line)) return true;
  return false;
}

std::string switchedOn(const std::string& text) {
  std::istringstream lines(text);
  std::string result;
  for (std::string line; std::getline(lines, line);)
    if (!switchesOff(line)) result += line + '\n';
  return result;
}

/// The key belongs to the first group.
std::string switchedOff(std::string text) {
  const auto group = text.find(kGroup);
  if (group == std::string::npos) return std::string(kGroup) + '\n' + std::string(kHiddenLine);
  return text.insert(group + kGroup.size(), '\n' + std::string(kHiddenLine));
}

/// The path as a command of an entry: quoted, and that written as a text of the file.
std::string command(const std::filesystem::path& program) {
  std::string quoted = "\"";
  for (const char letter : program.string()) {
    if (letter == '\\') {
      quoted += R"(\\\\)";
    } else if (letter == '"' || letter == '`' || letter == '$') {
      quoted += std::string(R"(\\)") + letter;
    } else {
      quoted += letter == '%' ? "%%" : std::string(1, letter);
    }
  }
  return quoted + '"';
}

void write(const std::filesystem::path& path, const std::string& text) {
  std::error_code error;
  std::filesystem::create_directories(path.parent_path(), error);
  QSaveFile file(QString::fromStdString(path.string()));
  if (!file.open(QIODevice::WriteOnly)) return;
  file.write(text.data(), static_cast<qint64>(text.size()));
  file.commit();
}

}  // namespace

AutostartEntry::AutostartEntry(const std::filesystem::path& userFolder,
                               const std::vector<std::filesystem::path>& systemFolders,
                               std::filesystem::path program)
    : userFile_(fileIn(userFolder)), program_(std::move(program)) {
  for (const auto& folder : systemFolders)
    systemFiles_.push_back(fileIn(folder));
}

bool AutostartEntry::isOn() const {
  const auto own = textOf(userFile_);
  return own ? !isSwitchedOff(*own) : isOnForAll();
}

bool AutostartEntry::isOnForAll() const {
  for (const auto& file : systemFiles_)
    if (const auto text = textOf(file)) return !isSwitchedOff(*text);
  return false;
}

void AutostartEntry::setOn(bool on) {
  if (on == isOn()) return;
  const auto own = textOf(userFile_);
  const auto text = own ? switchedOn(*own) : entry();
  if (text == entry() && isOnForAll() == on) {
    std::error_code error;
    std::filesystem::remove(userFile_, error);
    return;
  }
  write(userFile_, on ? text : switchedOff(text));
}

std::string AutostartEntry::entry() const {
  std::ostringstream text;
  text << kGroup << "\nType=Application\nName=Hilalor\n"
       << "Comment=Prayer times and a Hijri and Gregorian calendar in the desktop's bar\n"
       << "Exec=" << command(program_) << "\nIcon=" << kProgramId
       << "\nTerminal=false\nStartupNotify=false\nX-LXQt-Need-Tray=true\n";
  return text.str();
}

std::filesystem::path startedProgram() {
  const auto command = besideProgram("bin/hilalor");
  return command.empty() ? programFile() : command;
}

std::vector<std::filesystem::path> systemAutostartFolders() {
  const char* named = std::getenv("XDG_CONFIG_DIRS");
  std::istringstream list(named != nullptr && *named != '\0' ? named : "/etc/xdg");
  std::vector<std::filesystem::path> folders;
  for (std::string folder; std::getline(list, folder, ':');) {
    // Relative ones do not count.
    if (folder.starts_with('/')) folders.push_back(std::filesystem::path(folder) / "autostart");
  }
  return folders;
}

}  // namespace Hilalor::Desktop
