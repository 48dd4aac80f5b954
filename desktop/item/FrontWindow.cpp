#include "desktop/item/FrontWindow.hpp"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <chrono>
#include <ranges>

namespace Hilalor::Desktop {
namespace {

/// A window that is being moved or resized tells of every step.
constexpr std::chrono::milliseconds kBetweenSteps{100};

/// Windows that say nothing of their desktop, and those that are on all.
constexpr std::uint32_t kAllDesktops = 0xffffffff;

QRectF mainScreen() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen != nullptr ? QRectF(screen->geometry()) : QRectF();
}

QRectF qtRect(const Rect& rect) {
  return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}

/// A scaled screen's edges may lie between logical pixels.
bool covers(const Rect& rect, const QRectF& screen) {
  return qtRect(rect).adjusted(-1, -1, 1, 1).contains(screen);
}

}  // namespace

std::unique_ptr<FrontWindowWatch> FrontWindowWatch::open() {
  auto server = XConnection::open();
  if (!server) return nullptr;
  return std::unique_ptr<FrontWindowWatch>(new FrontWindowWatch(std::move(server)));
}

FrontWindowWatch::FrontWindowWatch(std::unique_ptr<XConnection> server)
    : server_(std::move(server)), atoms_{server_->atom("_NET_CLIENT_LIST_STACKING"),
                                         server_->atom("_NET_ACTIVE_WINDOW"),
                                         server_->atom("_NET_CURRENT_DESKTOP"),
                                         server_->atom("_NET_WM_STATE"),
                                         server_->atom("_NET_WM_STATE_FULLSCREEN"),
                                         server_->atom("_NET_WM_STATE_HIDDEN"),
                                         server_->atom("_NET_WM_STATE_MAXIMIZED_VERT"),
                                         server_->atom("_NET_WM_WINDOW_TYPE_NORMAL"),
                                         server_->atom("_NET_WM_WINDOW_TYPE_DESKTOP")} {
  const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
  xcb_change_window_attributes(server_->get(), server_->root(), XCB_CW_EVENT_MASK, &events);
  lookSoon_.setSingleShot(true);
  QObject::connect(&lookSoon_, &QTimer::timeout, [this] { look(); });
  server_->watch([this](const xcb_generic_event_t& event) { handle(event); });
  look();
}

void FrontWindowWatch::handle(const xcb_generic_event_t& event) {
  constexpr std::uint8_t kSentByServer = 0x7f;
  switch (event.response_type & kSentByServer) {
    case XCB_PROPERTY_NOTIFY: {
      const auto& told = reinterpret_cast<const xcb_property_notify_event_t&>(event);
      const bool matters = told.window == server_->root()
                               ? told.atom == atoms_.stacking || told.atom == atoms_.active ||
                                     told.atom == atoms_.desktop
                               : told.atom == atoms_.state;
      if (matters) lookSoon_.start(0);
      return;
    }
    case XCB_MAP_NOTIFY:
    case XCB_UNMAP_NOTIFY:
    case XCB_DESTROY_NOTIFY:
      lookSoon_.start(0);
      return;
    case XCB_CONFIGURE_NOTIFY: {
      const auto& told = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
      const bool isOurs = QWidget::find(told.window) != nullptr;
      if (!isOurs && !lookSoon_.isActive()) lookSoon_.start(kBetweenSteps);
      return;
    }
    default:
      return;
  }
}

void FrontWindowWatch::look() {
  const auto [id, window] = find();
  follow(id);
  if (window == front_) return;
  front_ = window;
  changed.emit();
}

/// Only the window in front tells of its changes: others' are many, and each would wake us.
void FrontWindowWatch::follow(xcb_window_t window) {
  if (window == followed_) return;
  const auto select = [&](xcb_window_t of, std::uint32_t events) {
    // Our own windows have Qt's selection; on this connection it is another one.
    if (of == XCB_WINDOW_NONE) return;
    Xcb::ignoreFailure(server_->get(), xcb_change_window_attributes_checked(
                                           server_->get(), of, XCB_CW_EVENT_MASK, &events));
  };
  select(followed_, XCB_EVENT_MASK_NO_EVENT);
  select(window, XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
  xcb_flush(server_->get());
  followed_ = window;
}

FrontWindowWatch::Found FrontWindowWatch::find() const {
  if (isScreenCovered()) return {XCB_WINDOW_NONE, {FrontWindow::Extent::fullScreen, {}, 0}};
  const auto windows = clients();
  const auto front = std::ranges::find_if(windows.rbegin(), windows.rend(),
                                          [this](xcb_window_t id) { return isInFront(id); });
  if (front == windows.rend()) return {};
  return {*front, described(*front)};
}

/// Whether the window hides those below it, on the main screen.
bool FrontWindowWatch::isInFront(xcb_window_t window) const {
  const auto types = server_->numbers(window, "_NET_WM_WINDOW_TYPE");
  if (!types.empty() && std::ranges::find(types, atoms_.normal) == types.end()) return false;
  if (has(window, "_NET_WM_STATE", atoms_.hidden)) return false;
  const auto desktop = server_->numbers(window, "_NET_WM_DESKTOP");
  const auto current = server_->numbers(server_->root(), "_NET_CURRENT_DESKTOP");
  if (!desktop.empty() && desktop.front() != kAllDesktops && desktop != current) return false;
  const auto attributes = Xcb::answer(xcb_get_window_attributes_reply, server_->get(),
                                      xcb_get_window_attributes(server_->get(), window));
  if (!attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE) return false;
  const auto place = rect(window);
  return place && mainScreen().contains(qtRect(*place).center());
}

FrontWindow FrontWindowWatch::described(xcb_window_t window) const {
  FrontWindow found;
  const auto place = rect(window);
  if (!place) return found;
  if (has(window, "_NET_WM_STATE", atoms_.fullScreen)) {
    return {FrontWindow::Extent::fullScreen, *place, 0};
  }
  // Where an ordinary one is does not matter, and changes often.
  if (!has(window, "_NET_WM_STATE", atoms_.maximised)) return found;
  QMarginsF margins;
  const auto extents = server_->numbers(window, "_NET_FRAME_EXTENTS");
  if (extents.size() == 4) {
    const double scale = QGuiApplication::primaryScreen()->devicePixelRatio();
    margins = QMarginsF(extents[0], extents[2], extents[1], extents[3]) / scale;
  }
  const QRectF frame = qtRect(*place).marginsAdded(margins);
  return {FrontWindow::Extent::fullHeight,
          {{frame.x(), frame.y()}, {frame.width(), frame.height()}},
          margins.top()};
}

/// From the bottom to the top.
std::vector<xcb_window_t> FrontWindowWatch::clients() const {
  auto windows = server_->numbers(server_->root(), "_NET_CLIENT_LIST_STACKING");
  if (windows.empty()) windows = server_->numbers(server_->root(), "_NET_ACTIVE_WINDOW");
  return windows;
}

/// Whether a window that no window manager knows, a screen locker's or any on a bare screen, lies
/// over all of the main screen.
bool FrontWindowWatch::isScreenCovered() const {
  const auto tree = Xcb::answer(xcb_query_tree_reply, server_->get(),
                                xcb_query_tree(server_->get(), server_->root()));
  if (!tree) return false;
  const std::vector<xcb_window_t> windows(
      xcb_query_tree_children(tree.get()),
      xcb_query_tree_children(tree.get()) + xcb_query_tree_children_length(tree.get()));
  std::vector<xcb_get_window_attributes_cookie_t> requests;
  for (const xcb_window_t window : windows)
    requests.push_back(xcb_get_window_attributes(server_->get(), window));

  const bool isManaged = !server_->numbers(server_->root(), "_NET_SUPPORTING_WM_CHECK").empty();
  bool isCovered = false;
  for (std::size_t index = 0; index < windows.size(); ++index) {
    const auto attributes =
        Xcb::answer(xcb_get_window_attributes_reply, server_->get(), requests[index]);
    if (isCovered || !attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE) continue;
    if (attributes->_class != XCB_WINDOW_CLASS_INPUT_OUTPUT) continue;
    if (isManaged && attributes->override_redirect == 0) continue;
    const auto place = rect(windows[index]);
    isCovered = place && covers(*place, mainScreen()) &&
                !has(windows[index], "_NET_WM_WINDOW_TYPE", atoms_.backdrop);
  }
  return isCovered;
}

bool FrontWindowWatch::has(xcb_window_t window, const char* property, xcb_atom_t value) const {
  const auto values = server_->numbers(window, property);
  return std::ranges::find(values, value) != values.end();
}

/// With its border, in logical pixels on the whole screen.
std::optional<Rect> FrontWindowWatch::rect(xcb_window_t window) const {
  const auto sizeRequest = xcb_get_geometry(server_->get(), window);
  const auto placeRequest =
      xcb_translate_coordinates(server_->get(), window, server_->root(), 0, 0);
  const auto size = Xcb::answer(xcb_get_geometry_reply, server_->get(), sizeRequest);
  const auto place = Xcb::answer(xcb_translate_coordinates_reply, server_->get(), placeRequest);
  if (!size || !place) return std::nullopt;
  const QRectF inside(place->dst_x, place->dst_y, size->width, size->height);
  const double border = size->border_width;
  return logicalRect(inside.adjusted(-border, -border, border, border));
}

}  // namespace Hilalor::Desktop
