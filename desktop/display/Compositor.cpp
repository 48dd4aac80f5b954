#include "desktop/display/Compositor.hpp"

#include <string>

#include "desktop/display/DisplayKind.hpp"
#include "desktop/display/XConnection.hpp"
#include "desktop/display/Xcb.hpp"

namespace Hilalor::Desktop {

bool hasCompositor() {
  if (displayKind() != DisplayKind::x11) return true;
  const auto server = XConnection::open();
  if (!server) return false;
  const auto selection = server->atom("_NET_WM_CM_S" + std::to_string(server->screenNumber()));
  const auto reply = Xcb::answer(xcb_get_selection_owner_reply, server->get(),
                                 xcb_get_selection_owner(server->get(), selection));
  return reply && reply->owner != XCB_WINDOW_NONE;
}

}  // namespace Hilalor::Desktop
