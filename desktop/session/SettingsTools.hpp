#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Workspace.hpp"

namespace Hilalor::Desktop {

/// A program and what it is called with.
struct SettingsTool {
  std::string program;
  std::vector<std::string> arguments;
  friend bool operator==(const SettingsTool&, const SettingsTool&) = default;
};

/// The tool of the running desktop that shows the pane, or comes nearest to it. `desktops` is as in
/// XDG_CURRENT_DESKTOP: names between colons, the most specific first. None where the desktop is
/// unknown or nothing of its own is installed.
[[nodiscard]] std::optional<SettingsTool> settingsTool(
    SettingsPane pane, std::string_view desktops,
    const std::function<bool(const std::string& program)>& isInstalled);

}  // namespace Hilalor::Desktop
