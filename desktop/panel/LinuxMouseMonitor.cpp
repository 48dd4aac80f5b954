#include "desktop/panel/LinuxMouseMonitor.hpp"

#include <xcb/xinput.h>

#include <QApplication>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "desktop/display/DisplayKind.hpp"
#include "desktop/display/XConnection.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr std::uint32_t kLeftButton = 1;
constexpr std::uint32_t kRightButton = 3;

struct Pointer {
  Point place;
  bool isOverOwnWindow = false;
};

/// The window itself, or the one of the root's that it is in.
xcb_window_t outermost(const XConnection& server, xcb_window_t window) {
  while (true) {
    const auto cookie = xcb_query_tree(server.get(), window);
    const auto reply = Xcb::answer(xcb_query_tree_reply, server.get(), cookie);
    if (!reply || reply->parent == server.root() || reply->parent == XCB_WINDOW_NONE) return window;
    window = reply->parent;
  }
}

/// Whether the window of the root's is what the window manager put around one of ours. What one
/// without a manager is in, a bar, is not.
bool isOwnFrame(const XConnection& server, xcb_window_t frame) {
  return std::ranges::any_of(QApplication::topLevelWidgets(), [&](const QWidget* window) {
    const auto id = static_cast<xcb_window_t>(window->internalWinId());
    return window->isVisible() && id != XCB_WINDOW_NONE &&
           !window->windowFlags().testFlag(Qt::BypassWindowManagerHint) &&
           outermost(server, id) == frame;
  });
}

/// Follows the windows under the pointer from the root down.
Pointer pointer(const XConnection& server) {
  Pointer found;
  xcb_window_t atTop = XCB_WINDOW_NONE;
  for (xcb_window_t window = server.root(); window != XCB_WINDOW_NONE;) {
    const auto cookie = xcb_query_pointer(server.get(), window);
    const auto reply = Xcb::answer(xcb_query_pointer_reply, server.get(), cookie);
    if (!reply) break;
    found.place = logicalPoint(reply->root_x, reply->root_y);
    window = reply->child;
    if (atTop == XCB_WINDOW_NONE) atTop = window;
    if (QWidget::find(window) != nullptr) found.isOverOwnWindow = true;
  }
  found.isOverOwnWindow = found.isOverOwnWindow || isOwnFrame(server, atTop);
  return found;
}

class RawButtons final : public EventMonitor {
 public:
  RawButtons(std::unique_ptr<XConnection> server, MouseMonitor::Handlers handlers)
      : server_(std::move(server)), handlers_(std::move(handlers)) {
    struct {
      xcb_input_event_mask_t head;
      std::uint32_t mask;
    } const select{
        {XCB_INPUT_DEVICE_ALL_MASTER, 1},
        XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE};
    xcb_input_xi_select_events(server_->get(), server_->root(), 1, &select.head);
    server_->watch([this](const xcb_generic_event_t& event) { handle(event); });
  }

 private:
  void handle(const xcb_generic_event_t& event) const {
    constexpr std::uint8_t kSentByServer = 0x7f;
    if ((event.response_type & kSentByServer) != XCB_GE_GENERIC) return;
    // Raw presses and releases are laid out alike.
    const auto& raw = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event);
    if (raw.detail != kLeftButton && raw.detail != kRightButton) return;
    // Copies, since the handlers may end this monitor.
    if (raw.event_type == XCB_INPUT_RAW_BUTTON_PRESS && handlers_.onPress) {
      const Pointer at = pointer(*server_);
      const auto onPress = handlers_.onPress;
      if (!at.isOverOwnWindow) onPress(at.place);
    } else if (raw.event_type == XCB_INPUT_RAW_BUTTON_RELEASE && handlers_.onRelease) {
      const auto onRelease = handlers_.onRelease;
      onRelease();
    }
  }

  std::unique_ptr<XConnection> server_;
  MouseMonitor::Handlers handlers_;
};

bool hasXInput2(const XConnection& server) {
  const auto cookie = xcb_input_xi_query_version(server.get(), 2, 2);
  return Xcb::answer(xcb_input_xi_query_version_reply, server.get(), cookie) != nullptr;
}

}  // namespace

std::unique_ptr<EventMonitor> LinuxMouseMonitor::addGlobalMonitor(Handlers handlers) {
  // Under a compositor the server hears of the presses over its own windows only, and may not know
  // where the pointer is.
  if (displayKind() != DisplayKind::x11) return nullptr;
  auto server = XConnection::open();
  if (!server || !hasXInput2(*server)) return nullptr;
  return std::make_unique<RawButtons>(std::move(server), std::move(handlers));
}

}  // namespace Hilalor::Desktop
