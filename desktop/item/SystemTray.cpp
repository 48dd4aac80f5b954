#include "desktop/item/SystemTray.hpp"

#include <QGuiApplication>
#include <array>
#include <cstdlib>
#include <cstring>
#include <string>

namespace Hilalor {
namespace {

constexpr std::uint32_t kRequestDock = 0;
constexpr std::uint32_t kXembedVersion = 0;
/// Flags of the XEmbed information.
constexpr std::uint32_t kHidden = 0;
constexpr std::uint32_t kMapped = 1;
/// A property longer than this many 32-bit values is not one of ours.
constexpr std::uint32_t kLongestProperty = 64;

struct Freed {
  void operator()(void* reply) const { std::free(reply); }  // NOLINT: how XCB gives its replies
};
template <typename Reply>
using Owned = std::unique_ptr<Reply, Freed>;

const xcb_screen_t* screenNumbered(xcb_connection_t* connection, int number) {
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
  for (; screens.rem > 1 && number > 0; --number) {
    xcb_screen_next(&screens);
  }
  return screens.data;
}

int defaultScreenNumber() {
  char* host = nullptr;
  int display = 0;
  int screen = 0;
  if (xcb_parse_display(nullptr, &host, &display, &screen) == 0) return 0;
  const Owned<char> owned(host);
  return screen;
}

/// Sends the request without hearing of its failure: windows of other programs go at any time.
void ignoreFailure(xcb_connection_t* connection, xcb_void_cookie_t request) {
  xcb_discard_reply(connection, request.sequence);
}

QColor meanColour(const QImage& image) {
  return image.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0);
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
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (x11 == nullptr || x11->connection() == nullptr) return nullptr;
  xcb_connection_t* connection = x11->connection();
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
    const Owned<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection, requests[i], nullptr));
    if (reply) atoms[i] = reply->atom;
  }
  return {atoms[0], atoms[1], atoms[2], atoms[3], atoms[4], atoms[5]};
}

void SystemTray::findManager() {
  const Owned<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
      connection_, xcb_get_selection_owner(connection_, atoms_.selection), nullptr));
  manager_ = owner ? owner->owner : xcb_window_t{XCB_WINDOW_NONE};
  if (!isThere()) return;
  const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
  ignoreFailure(connection_, xcb_change_window_attributes_checked(connection_, manager_,
                                                                  XCB_CW_EVENT_MASK, &events));
  xcb_flush(connection_);
}

bool SystemTray::isTransparent() const {
  const auto visual = managerProperty(atoms_.visual);
  return visual.size() == 1 && depthOf(screen_, visual.front()) == 32;
}

std::optional<QColor> SystemTray::textColour() const {
  const auto colours = managerProperty(atoms_.colours);
  // Red, green and blue of 16 bits each for text, error, warning and success.
  if (colours.size() != 12) return std::nullopt;
  const auto channel = [&](std::size_t i) { return static_cast<int>((colours[i] >> 8U) & 0xFFU); };
  return QColor(channel(0), channel(1), channel(2));
}

void SystemTray::dock(xcb_window_t window) {
  docked_ = window;
  tellEmbedder(kHidden);
  const std::uint32_t background = XCB_BACK_PIXMAP_PARENT_RELATIVE;
  ignoreFailure(connection_, xcb_change_window_attributes_checked(connection_, window,
                                                                  XCB_CW_BACK_PIXMAP, &background));
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
  ignoreFailure(connection_, xcb_send_event_checked(connection_, 0, manager_,
                                                    XCB_EVENT_MASK_NO_EVENT, bytes.data()));
  xcb_flush(connection_);
}

void SystemTray::tellShown() const {
  tellEmbedder(kMapped);
}

void SystemTray::tellEmbedder(std::uint32_t flags) const {
  const std::array<std::uint32_t, 2> info = {kXembedVersion, flags};
  ignoreFailure(connection_, xcb_change_property_checked(
                                 connection_, XCB_PROP_MODE_REPLACE, docked_, atoms_.xembedInfo,
                                 atoms_.xembedInfo, 32, info.size(), info.data()));
  xcb_flush(connection_);
}

void SystemTray::askForSize(const QSize& size) const {
  const auto width = static_cast<std::uint32_t>(size.width());
  const auto height = static_cast<std::uint32_t>(size.height());
  // WM_SIZE_HINTS of ICCCM 4.1.2.3: flags, then the smallest size in the sixth and seventh field.
  std::array<std::uint32_t, 18> hints{};
  constexpr std::uint32_t kMinimumSize = 1U << 4U;
  hints[0] = kMinimumSize;
  hints[5] = width;
  hints[6] = height;
  ignoreFailure(connection_,
                xcb_change_property_checked(connection_, XCB_PROP_MODE_REPLACE, docked_,
                                            XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, 32,
                                            hints.size(), hints.data()));
  const std::array<std::uint32_t, 2> wanted = {width, height};
  ignoreFailure(
      connection_,
      xcb_configure_window_checked(
          connection_, docked_, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, wanted.data()));
  xcb_flush(connection_);
}

std::optional<QImage> SystemTray::backdrop(const QSize& size) const {
  ignoreFailure(connection_, xcb_clear_area_checked(connection_, 0, docked_, 0, 0,
                                                    static_cast<std::uint16_t>(size.width()),
                                                    static_cast<std::uint16_t>(size.height())));
  return image(docked_, {QPoint(), size});
}

std::optional<QColor> SystemTray::ground(const QSize& size) const {
  const auto place = dockedPlace();
  if (!place || !isDockedOnScreen()) return std::nullopt;
  // Two columns that a title leaves free.
  const auto edge = image(screen_.root, {*place, QSize(2, size.height())});
  return edge ? std::optional(meanColour(*edge)) : std::nullopt;
}

std::optional<QImage> SystemTray::image(xcb_window_t window, const QRect& part) const {
  const auto width = static_cast<std::uint16_t>(part.width());
  const auto height = static_cast<std::uint16_t>(part.height());
  xcb_generic_error_t* error = nullptr;
  const Owned<xcb_get_image_reply_t> reply(
      xcb_get_image_reply(connection_,
                          xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, window,
                                        static_cast<std::int16_t>(part.x()),
                                        static_cast<std::int16_t>(part.y()), width, height, ~0U),
                          &error));
  const Owned<xcb_generic_error_t> failure(error);
  const auto bytes = static_cast<std::size_t>(width) * height * sizeof(QRgb);
  if (!reply || reply->depth != 24 ||
      static_cast<std::size_t>(xcb_get_image_data_length(reply.get())) != bytes) {
    return std::nullopt;
  }
  return QImage(xcb_get_image_data(reply.get()), width, height, QImage::Format_RGB32).copy();
}

bool SystemTray::isDockedOnScreen() const {
  xcb_generic_error_t* error = nullptr;
  const Owned<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
      connection_, xcb_get_window_attributes(connection_, docked_), &error));
  const Owned<xcb_generic_error_t> failure(error);
  return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

std::optional<QPoint> SystemTray::dockedPlace() const {
  xcb_generic_error_t* error = nullptr;
  const Owned<xcb_translate_coordinates_reply_t> reply(xcb_translate_coordinates_reply(
      connection_, xcb_translate_coordinates(connection_, docked_, screen_.root, 0, 0), &error));
  const Owned<xcb_generic_error_t> failure(error);
  if (!reply) return std::nullopt;
  return QPoint(reply->dst_x, reply->dst_y);
}

bool SystemTray::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
  if (type != "xcb_generic_event_t") return false;
  const auto* signal = signalOf(*static_cast<const xcb_generic_event_t*>(message));
  if (signal == nullptr) return false;
  // Windows must not be made or unmade in the midst of the display's events.
  QMetaObject::invokeMethod(
      &laterPass_,
      [this, signal] {
        if (signal == &changed) findManager();
        signal->emit();
      },
      Qt::QueuedConnection);
  return false;
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

std::vector<std::uint32_t> SystemTray::managerProperty(xcb_atom_t name) const {
  xcb_generic_error_t* error = nullptr;
  const Owned<xcb_get_property_reply_t> reply(
      xcb_get_property_reply(connection_,
                             xcb_get_property(connection_, 0, manager_, name,
                                              XCB_GET_PROPERTY_TYPE_ANY, 0, kLongestProperty),
                             &error));
  const Owned<xcb_generic_error_t> failure(error);
  if (!reply || reply->format != 32) return {};
  std::vector<std::uint32_t> values(reply->value_len);
  std::memcpy(values.data(), xcb_get_property_value(reply.get()),
              values.size() * sizeof(std::uint32_t));
  return values;
}

}  // namespace Hilalor
