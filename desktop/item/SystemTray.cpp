#include "desktop/item/SystemTray.hpp"

#include <QGuiApplication>
#include <array>
#include <cstring>
#include <string>

#include "desktop/display/XConnection.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr std::uint32_t kRequestDock = 0;

int defaultScreenNumber() {
  char* host = nullptr;
  int display = 0;
  int screen = 0;
  if (xcb_parse_display(nullptr, &host, &display, &screen) == 0) return 0;
  const Xcb::Owned<char> owned(host);
  return screen;
}

std::uint8_t depthOf(const xcb_screen_t& screen, xcb_visualid_t visual) {
  for (auto depths = xcb_screen_allowed_depths_iterator(&screen); depths.rem > 0;
       xcb_depth_next(&depths)) {
    for (auto visuals = xcb_depth_visuals_iterator(depths.data); visuals.rem > 0;
         xcb_visualtype_next(&visuals)) {
      if (visuals.data->visual_id == visual) return depths.data->depth;
    }
  }
  return 0;
}

}  // namespace

std::unique_ptr<SystemTray> SystemTray::ofDisplay() {
  if (!isOnX11()) return nullptr;
  xcb_connection_t* connection = qtConnection();
  const int number = defaultScreenNumber();
  std::unique_ptr<SystemTray> tray(new SystemTray(  // NOLINT: the constructor is private
      connection, *screenNumbered(connection, number), internAtoms(connection, number)));
  qGuiApp->installNativeEventFilter(tray.get());
  tray->findManager();
  return tray;
}

SystemTray::SystemTray(xcb_connection_t* connection, const xcb_screen_t& screen, const Atoms& atoms)
    : connection_(connection), screen_(screen), atoms_(atoms) {}

SystemTray::~SystemTray() {
  if (qGuiApp != nullptr) qGuiApp->removeNativeEventFilter(this);
}

SystemTray::Atoms SystemTray::internAtoms(xcb_connection_t* connection, int screenNumber) {
  const std::array<std::string, 6> names = {"_NET_SYSTEM_TRAY_S" + std::to_string(screenNumber),
                                            "MANAGER",
                                            "_NET_SYSTEM_TRAY_OPCODE",
                                            "_NET_SYSTEM_TRAY_COLORS",
                                            "_NET_SYSTEM_TRAY_VISUAL",
                                            "_XEMBED_INFO"};
  std::array<xcb_intern_atom_cookie_t, names.size()> requests{};
  for (std::size_t i = 0; i < names.size(); ++i) {
    requests[i] = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(names[i].size()),
                                  names[i].data());
  }
  std::array<xcb_atom_t, names.size()> atoms{};
  for (std::size_t i = 0; i < names.size(); ++i) {
    const auto reply = Xcb::answer(xcb_intern_atom_reply, connection, requests[i]);
    if (reply) atoms[i] = reply->atom;
  }
  return {atoms[0], atoms[1], atoms[2], atoms[3], atoms[4], atoms[5]};
}

void SystemTray::findManager() {
  const auto owner = Xcb::answer(xcb_get_selection_owner_reply, connection_,
                                 xcb_get_selection_owner(connection_, atoms_.selection));
  manager_ = owner ? owner->owner : xcb_window_t{XCB_WINDOW_NONE};
  if (!isThere()) return;
  const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
  Xcb::ignoreFailure(connection_, xcb_change_window_attributes_checked(connection_, manager_,
                                                                       XCB_CW_EVENT_MASK, &events));
  xcb_flush(connection_);
}

bool SystemTray::hasWindowManager() const {
  // Only one program at a time can select this event: the window manager.
  const auto attributes = Xcb::answer(xcb_get_window_attributes_reply, connection_,
                                      xcb_get_window_attributes(connection_, screen_.root));
  return attributes && (attributes->all_event_masks & XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT) != 0;
}

bool SystemTray::isTransparent() const {
  const auto visual = Xcb::values<std::uint32_t>(connection_, manager_, atoms_.visual);
  return visual.size() == 1 && depthOf(screen_, visual.front()) == 32;
}

std::optional<QColor> SystemTray::textColour() const {
  const auto colours = Xcb::values<std::uint32_t>(connection_, manager_, atoms_.colours);
  // Red, green and blue of 16 bits each for text, error, warning and success.
  if (colours.size() != 12) return std::nullopt;
  const auto channel = [&](std::size_t i) { return static_cast<int>((colours[i] >> 8U) & 0xFFU); };
  return QColor(channel(0), channel(1), channel(2));
}

DockedWindow SystemTray::dock(xcb_window_t window, const QSize& size) {
  docked_ = window;
  const DockedWindow docked(connection_, screen_, window, atoms_.xembedInfo);
  // From the beginning: some trays lose a window that is hidden and shown while they take it in.
  docked.wishToBeShown();
  docked.askForSize(size);
  xcb_client_message_event_t request{};
  request.response_type = XCB_CLIENT_MESSAGE;
  request.format = 32;
  request.window = manager_;
  request.type = atoms_.opcode;
  request.data.data32[0] = XCB_CURRENT_TIME;
  request.data.data32[1] = kRequestDock;
  request.data.data32[2] = window;
  std::array<char, 32> bytes{};
  static_assert(sizeof(request) == bytes.size());
  std::memcpy(bytes.data(), &request, sizeof(request));
  Xcb::ignoreFailure(connection_, xcb_send_event_checked(connection_, 0, manager_,
                                                         XCB_EVENT_MASK_NO_EVENT, bytes.data()));
  xcb_flush(connection_);
  return docked;
}

bool SystemTray::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
  if (type != "xcb_generic_event_t") return false;
  const auto* signal = signalOf(*static_cast<const xcb_generic_event_t*>(message));
  if (signal == &embedded) {
    // Some trays map the window at once. Qt has to have shown it before it hears of that.
    embedded.emit();
  } else if (signal != nullptr) {
    tellLater(*signal);
  }
  return false;
}

void SystemTray::tellLater(const Signal<>& signal) {
  // Windows must not be made or unmade in the midst of the display's events.
  QMetaObject::invokeMethod(
      &laterPass_,
      [this, &signal, docked = docked_] {
        if (&signal == &changed) findManager();
        if (&signal != &expelled || docked == docked_) signal.emit();
      },
      Qt::QueuedConnection);
}

const Signal<>* SystemTray::signalOf(const xcb_generic_event_t& event) const {
  switch (event.response_type & 0x7FU) {
    case XCB_CLIENT_MESSAGE: {
      const auto& told = reinterpret_cast<const xcb_client_message_event_t&>(event);
      const bool isNewManager =
          told.type == atoms_.manager && told.data.data32[1] == atoms_.selection;
      return isNewManager ? &changed : nullptr;
    }
    case XCB_DESTROY_NOTIFY: {
      const auto& told = reinterpret_cast<const xcb_destroy_notify_event_t&>(event);
      if (told.window == manager_) return &changed;
      return told.window == docked_ ? &expelled : nullptr;
    }
    case XCB_REPARENT_NOTIFY: {
      const auto& told = reinterpret_cast<const xcb_reparent_notify_event_t&>(event);
      if (told.window != docked_) return nullptr;
      return told.parent == screen_.root ? &expelled : &embedded;
    }
    case XCB_PROPERTY_NOTIFY: {
      const auto& told = reinterpret_cast<const xcb_property_notify_event_t&>(event);
      return told.window == manager_ && told.atom == atoms_.colours ? &coloursChanged : nullptr;
    }
    default:
      return nullptr;
  }
}

}  // namespace Hilalor::Desktop
