#include "desktop/session/AutostartEntry.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "tests/fakes/TemporaryFolder.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr const char* kFile = "org.hilalor.Hilalor.desktop";
const std::string kNone;
const std::string kPackaged = "[Desktop Entry]\nType=Application\nExec=hilalor\n";
const std::string kHidden = "[Desktop Entry]\nHidden=true\nExec=hilalor\n";
const std::string kOwn = "[Desktop Entry]\nExec=late hilalor\n[Other]\nA=b\n";
const std::string kOwnOff =
    "[Desktop Entry]\nExec=late hilalor\nX-GNOME-Autostart-enabled=false\n[Other]\nA=b\n";

/// A user's and a system's entry, where there are any, and what switching makes of the user's.
struct Login {
  const std::string& user;
  const std::string& system;
  bool isOn;
  const char* afterOn;   ///< A part of the user's entry; null where there is to be none.
  const char* afterOff;  ///< After that.
};

TEST(AutostartEntry, IsTheTruthAndIsWrittenOnlyWhereItSaysSomething) {
  const Login logins[] = {
      {kNone, kPackaged, true, nullptr, "[Desktop Entry]\nHidden=true\nType=Application\n"},
      {kHidden, kPackaged, false, "Exec=hilalor\n", "Hidden=true\nExec=hilalor\n"},
      {kNone, kNone, false, "Exec=\"/opt/100%% \\\\$/hilalor\"\n", nullptr},
      {kNone, kHidden, false, "Exec=\"/opt/100%% \\\\$/hilalor\"\n", nullptr},
      {kOwn, kNone, true, kOwn.c_str(), "Hidden=true\nExec=late hilalor\n[Other]\nA=b\n"},
      {kOwnOff, kPackaged, false, kOwn.c_str(), "Hidden=true\nExec=late hilalor\n[Other]\nA=b\n"},
  };
  int number = 0;
  for (const auto& login : logins) {
    SCOPED_TRACE(number++);
    const TemporaryFolder folder;
    const auto user = folder.path() / "config/autostart";
    const auto system = folder.path() / "xdg/autostart";
    for (const auto& [place, text] : {std::pair(user, login.user), {system, login.system}}) {
      std::filesystem::create_directories(place);
      if (!text.empty()) std::ofstream(place / kFile) << text;
    }
    AutostartEntry entry(user, {folder.path() / "none", system}, "/opt/100% $/hilalor");
    EXPECT_EQ(entry.isOn(), login.isOn);
    for (const bool on : {true, false}) {
      entry.setOn(on);
      EXPECT_EQ(entry.isOn(), on);
      const char* expected = on ? login.afterOn : login.afterOff;
      EXPECT_EQ(std::filesystem::exists(user / kFile), expected != nullptr);
      std::ifstream written(user / kFile);
      const std::string text(std::istreambuf_iterator<char>(written), {});
      EXPECT_NE(text.find(expected != nullptr ? expected : ""), std::string::npos) << text;
    }
    entry.setOn(true);
    EXPECT_TRUE(entry.isOn());
  }
}

}  // namespace
}  // namespace Hilalor::Desktop
