#include "desktop/session/SettingsTools.hpp"

#include <gtest/gtest.h>

#include <set>

namespace Hilalor::Desktop {
namespace {

std::string commandLine(SettingsPane pane, std::string_view desktops,
                        const std::set<std::string>& installed) {
  const auto tool = settingsTool(
      pane, desktops, [&](const std::string& program) { return installed.contains(program); });
  if (!tool) return "";
  std::string line = tool->program;
  for (const auto& argument : tool->arguments)
    line += ' ' + argument;
  return line;
}

TEST(SettingsTools, AreThoseOfTheRunningDesktop) {
  const std::set<std::string> everything{"gnome-control-center",
                                         "systemsettings",
                                         "systemsettings5",
                                         "xfce4-notifyd-config",
                                         "xfce4-settings-manager",
                                         "cinnamon-settings",
                                         "mate-control-center",
                                         "lxqt-config",
                                         "mate-notification-properties",
                                         "budgie-control-center",
                                         "unity-control-center",
                                         "lxqt-config-notificationd"};
  const struct {
    const char* desktops;
    const char* notifications;
    const char* location;
  } cases[] = {
      {"GNOME", "gnome-control-center notifications", "gnome-control-center location"},
      {"ubuntu:GNOME", "gnome-control-center notifications", "gnome-control-center location"},
      {"Budgie:GNOME", "budgie-control-center notifications", "budgie-control-center location"},
      {"KDE", "systemsettings kcm_notifications", "systemsettings"},
      {"XFCE", "xfce4-notifyd-config", "xfce4-settings-manager"},
      {"xfce", "xfce4-notifyd-config", "xfce4-settings-manager"},
      {"X-Cinnamon", "cinnamon-settings notifications", "cinnamon-settings privacy"},
      {"MATE", "mate-notification-properties", "mate-control-center"},
      {"LXQt", "lxqt-config-notificationd", "lxqt-config"},
      {"sway", "", ""},
      {"::", "", ""},
      {"", "", ""},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(one.desktops);
    EXPECT_EQ(commandLine(SettingsPane::notifications, one.desktops, everything),
              one.notifications);
    EXPECT_EQ(commandLine(SettingsPane::locationPrivacy, one.desktops, everything), one.location);
  }
}

TEST(SettingsTools, AreAmongWhatIsInstalled) {
  EXPECT_EQ(commandLine(SettingsPane::notifications, "KDE", {"systemsettings5"}),
            "systemsettings5 kcm_notifications");
  EXPECT_EQ(commandLine(SettingsPane::notifications, "XFCE", {"xfce4-settings-manager"}),
            "xfce4-settings-manager");
  EXPECT_EQ(commandLine(SettingsPane::notifications, "XFCE", {"gnome-control-center"}), "");
}

}  // namespace
}  // namespace Hilalor::Desktop
