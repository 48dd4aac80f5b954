#include "desktop/diagnosis/DisplayDiagnosis.hpp"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <set>

#include "desktop/display/XConnection.hpp"
#include "desktop/process/ProcessName.hpp"
#include "desktop/store/UserFolders.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr const char* kNobody = "none";

std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::string compositor() {
  const auto name = variable("WAYLAND_DISPLAY");
  if (name.empty()) return "none";
  const auto owner = ownerOfSocket(userRuntimeFolder() / name);
  return owner.empty() ? "does not answer" : owner;
}

/// What an X server tells of its desktop.
class XDesktop {
 public:
  explicit XDesktop(const XConnection& display) : display_(display) {}

  [[nodiscard]] std::string screen() const {
    const auto& screen = display_.screen();
    return std::to_string(screen.width_in_pixels) + "x" + std::to_string(screen.height_in_pixels) +
           ", " + std::to_string(screen.width_in_millimeters) + " mm wide" +
           (has("XWAYLAND") ? ", of a Wayland compositor" : "");
  }

  [[nodiscard]] std::string windowManager() const {
    const auto check = display_.numbers(display_.root(), "_NET_SUPPORTING_WM_CHECK");
    if (check.empty()) return "none that says so";
    const auto name = display_.text(check.front(), "_NET_WM_NAME");
    return name.empty() ? "without a name" : name;
  }

  [[nodiscard]] std::string bars() const {
    std::set<std::string> names;
    for (const auto window : display_.numbers(display_.root(), "_NET_CLIENT_LIST"))
      if (isBar(window)) names.insert(programOf(window));
    std::string all;
    for (const auto& name : names)
      all += (all.empty() ? "" : ", ") + name;
    return all.empty() ? "none among the windows" : all;
  }

  /// Of a selection of the display's first screen, "_NET_SYSTEM_TRAY_S".
  [[nodiscard]] std::string ownerOf(const std::string& selection) const {
    const auto atom = display_.atom(selection + std::to_string(display_.screenNumber()));
    const auto owner = Xcb::answer(xcb_get_selection_owner_reply, display_.get(),
                                   xcb_get_selection_owner(display_.get(), atom));
    return owner && owner->owner != XCB_WINDOW_NONE ? programOf(owner->owner) : kNobody;
  }

 private:
  [[nodiscard]] bool has(std::string_view extension) const {
    const auto cookie = xcb_query_extension(
        display_.get(), static_cast<std::uint16_t>(extension.size()), extension.data());
    const auto reply = Xcb::answer(xcb_query_extension_reply, display_.get(), cookie);
    return reply && reply->present != 0;
  }

  [[nodiscard]] bool isBar(xcb_window_t window) const {
    const auto types = display_.numbers(window, "_NET_WM_WINDOW_TYPE");
    const auto bar = display_.atom("_NET_WM_WINDOW_TYPE_DOCK");
    return std::ranges::find(types, bar) != types.end();
  }

  // By its class, never by its title, which may be anything.
  [[nodiscard]] std::string programOf(xcb_window_t window) const {
    const auto names = display_.text(window, "WM_CLASS");
    if (!names.empty()) return names.substr(0, names.find('\0'));
    const auto process = display_.numbers(window, "_NET_WM_PID");
    const auto name = process.empty() ? "" : processName(process.front());
    return name.empty() ? "without a name" : name;
  }

  const XConnection& display_;
};

}  // namespace

void diagnoseDisplay(const Tell& tell) {
  tell("Wayland compositor", compositor());
  const auto display = XConnection::ofEnvironment();
  if (!display) {
    return tell("X server", variable("DISPLAY").empty() ? "none" : "does not answer");
  }
  const XDesktop desktop(*display);
  tell("X server", desktop.screen());
  tell("window manager", desktop.windowManager());
  tell("compositing", desktop.ownerOf("_NET_WM_CM_S") == kNobody ? "no" : "yes");
  tell("bars", desktop.bars());
  tell("tray of windows", desktop.ownerOf("_NET_SYSTEM_TRAY_S"));
}

}  // namespace Hilalor::Desktop
