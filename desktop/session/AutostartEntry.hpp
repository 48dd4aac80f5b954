#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/LoginEntry.hpp"

namespace Hilalor::Desktop {

/// The program's entry in the folders from which desktops start programs at login. The user's own
/// goes before the system's, which comes with the package, and "Hidden=true" in it switches that
/// off. The user's entry is removed where everything is the same without it. Other lines that
/// somebody wrote into it are kept.
class AutostartEntry final : public LoginEntry {
 public:
  /// Earlier folders in `systemFolders` go before later ones. `program` is what is to be started.
  AutostartEntry(const std::filesystem::path& userFolder,
                 const std::vector<std::filesystem::path>& systemFolders,
                 std::filesystem::path program);

  // LoginEntry
  [[nodiscard]] bool isOn() const override;
  void setOn(bool on) override;

 private:
  [[nodiscard]] bool isOnForAll() const;
  [[nodiscard]] std::string entry() const;

  std::filesystem::path userFile_;
  std::vector<std::filesystem::path> systemFiles_;
  std::filesystem::path program_;
};

/// What people start the program by: the command installed with it, else its own file.
[[nodiscard]] std::filesystem::path startedProgram();

/// The folders of the system's entries, the most important first: those of XDG_CONFIG_DIRS.
[[nodiscard]] std::vector<std::filesystem::path> systemAutostartFolders();

}  // namespace Hilalor::Desktop
