#include "desktop/session/SettingsTools.hpp"

#include <algorithm>
#include <cctype>

namespace Hilalor::Desktop {
namespace {

/// A tool of one desktop; of those that are installed the first is the best.
struct KnownTool {
  std::string_view desktop;
  SettingsPane pane;
  std::string_view program;
  std::string_view argument = {};  // None if empty.
};

// Only GNOME's and Budgie's own tools have a switch for who may know the machine's place. Elsewhere
// the whole of the settings is as near as one gets.
constexpr KnownTool kTools[] = {
    {"GNOME", SettingsPane::notifications, "gnome-control-center", "notifications"},
    {"GNOME", SettingsPane::locationPrivacy, "gnome-control-center", "location"},
    {"Budgie", SettingsPane::notifications, "budgie-control-center", "notifications"},
    {"Budgie", SettingsPane::locationPrivacy, "budgie-control-center", "location"},
    {"Unity", SettingsPane::notifications, "unity-control-center"},
    {"Unity", SettingsPane::locationPrivacy, "unity-control-center", "privacy"},
    {"KDE", SettingsPane::notifications, "systemsettings", "kcm_notifications"},
    {"KDE", SettingsPane::notifications, "systemsettings5", "kcm_notifications"},
    {"KDE", SettingsPane::locationPrivacy, "systemsettings"},
    {"KDE", SettingsPane::locationPrivacy, "systemsettings5"},
    {"XFCE", SettingsPane::notifications, "xfce4-notifyd-config"},
    {"XFCE", SettingsPane::notifications, "xfce4-settings-manager"},
    {"XFCE", SettingsPane::locationPrivacy, "xfce4-settings-manager"},
    {"X-Cinnamon", SettingsPane::notifications, "cinnamon-settings", "notifications"},
    {"X-Cinnamon", SettingsPane::locationPrivacy, "cinnamon-settings", "privacy"},
    {"MATE", SettingsPane::notifications, "mate-notification-properties"},
    {"MATE", SettingsPane::notifications, "mate-control-center"},
    {"MATE", SettingsPane::locationPrivacy, "mate-control-center"},
    {"LXQt", SettingsPane::notifications, "lxqt-config-notificationd"},
    {"LXQt", SettingsPane::notifications, "lxqt-config"},
    {"LXQt", SettingsPane::locationPrivacy, "lxqt-config"},
};

bool isSameName(std::string_view one, std::string_view other) {
  const auto lower = [](char letter) { return std::tolower(static_cast<unsigned char>(letter)); };
  return std::ranges::equal(one, other, {}, lower, lower);
}

}  // namespace

std::optional<SettingsTool> settingsTool(
    SettingsPane pane, std::string_view desktops,
    const std::function<bool(const std::string& program)>& isInstalled) {
  while (!desktops.empty()) {
    const auto end = std::min(desktops.find(':'), desktops.size());
    const auto desktop = desktops.substr(0, end);
    desktops.remove_prefix(std::min(end + 1, desktops.size()));
    for (const KnownTool& tool : kTools) {
      const std::string program(tool.program);
      if (tool.pane != pane || !isSameName(tool.desktop, desktop) || !isInstalled(program))
        continue;
      if (tool.argument.empty()) return SettingsTool{program, {}};
      return SettingsTool{program, {std::string(tool.argument)}};
    }
  }
  return std::nullopt;
}

}  // namespace Hilalor::Desktop
