#include "desktop/item/DockedWindow.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "desktop/display/Xcb.hpp"
#include "desktop/item/ItemPainter.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr std::uint32_t kXembedVersion = 0;
constexpr std::uint32_t kXembedMapped = 1;
constexpr int kAround = 2;

/// The colour in the middle by lightness, for some may be of neighbours and of the bar's edge.
std::optional<QColor> typicalColour(std::vector<QColor> colours) {
  if (colours.empty()) return std::nullopt;
  const auto middle = colours.begin() + static_cast<std::ptrdiff_t>(colours.size() / 2);
  std::nth_element(colours.begin(), middle, colours.end(), [](const auto& one, const auto& other) {
    return lightness(one) < lightness(other);
  });
  return *middle;
}

}  // namespace

DockedWindow::DockedWindow(xcb_connection_t* connection, const xcb_screen_t& screen,
                           xcb_window_t window, xcb_atom_t xembedInfo)
    : connection_(connection), screen_(&screen), window_(window), xembedInfo_(xembedInfo) {
  // What an opaque window does not paint shows the tray.
  const std::uint32_t background = XCB_BACK_PIXMAP_PARENT_RELATIVE;
  Xcb::ignoreFailure(connection_, xcb_change_window_attributes_checked(
                                      connection_, window_, XCB_CW_BACK_PIXMAP, &background));
  forgetProperties();
}

/// Qt asks to hear of every change of the properties of its windows, and would be woken by each
/// title. What it would learn from them, a window manager says, which a docked window has not.
void DockedWindow::forgetProperties() const {
  const auto attributes = Xcb::answer(xcb_get_window_attributes_reply, connection_,
                                      xcb_get_window_attributes(connection_, window_));
  if (!attributes) return;
  const auto heard = attributes->your_event_mask & ~std::uint32_t{XCB_EVENT_MASK_PROPERTY_CHANGE};
  Xcb::ignoreFailure(connection_, xcb_change_window_attributes_checked(connection_, window_,
                                                                       XCB_CW_EVENT_MASK, &heard));
}

void DockedWindow::wishToBeShown() const {
  const std::array<std::uint32_t, 2> info = {kXembedVersion, kXembedMapped};
  Xcb::ignoreFailure(connection_, xcb_change_property_checked(connection_, XCB_PROP_MODE_REPLACE,
                                                              window_, xembedInfo_, xembedInfo_, 32,
                                                              info.size(), info.data()));
  xcb_flush(connection_);
}

void DockedWindow::askForSize(const QSize& size) const {
  const auto width = static_cast<std::uint32_t>(size.width());
  const auto height = static_cast<std::uint32_t>(size.height());
  // WM_SIZE_HINTS of ICCCM 4.1.2.3: flags, then the smallest size in the sixth and seventh field.
  std::array<std::uint32_t, 18> hints{};
  constexpr std::uint32_t kMinimumSize = 1U << 4U;
  hints[0] = kMinimumSize;
  hints[5] = width;
  hints[6] = height;
  Xcb::ignoreFailure(
      connection_, xcb_change_property_checked(connection_, XCB_PROP_MODE_REPLACE, window_,
                                               XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, 32,
                                               hints.size(), hints.data()));
  resize(size);
}

void DockedWindow::resize(const QSize& size) const {
  const std::array<std::uint32_t, 2> wanted = {static_cast<std::uint32_t>(size.width()),
                                               static_cast<std::uint32_t>(size.height())};
  Xcb::ignoreFailure(
      connection_,
      xcb_configure_window_checked(
          connection_, window_, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, wanted.data()));
  xcb_flush(connection_);
}

std::optional<QSize> DockedWindow::size() const {
  const auto rect = rectOnScreen(window_);
  if (!rect) return std::nullopt;
  return rect->size();
}

std::optional<DockedPlace> DockedWindow::place() const {
  const auto own = isShown() ? rectOnScreen(window_) : std::nullopt;
  const auto screen = rectOnScreen(screen_->root);
  if (!own || !screen) return std::nullopt;
  std::optional<DockedPlace> place;
  for (auto around = parent(window_); around != screen_->root; around = parent(*around)) {
    const auto rect = around ? rectOnScreen(*around) : std::nullopt;
    if (!rect) return std::nullopt;
    place = {*own, place ? place->room & *rect : *rect, *rect, *screen};
  }
  return place;
}

std::optional<xcb_window_t> DockedWindow::parent(xcb_window_t window) const {
  const auto tree =
      Xcb::answer(xcb_query_tree_reply, connection_, xcb_query_tree(connection_, window));
  if (!tree) return std::nullopt;
  return tree->parent;
}

std::optional<QRect> DockedWindow::rectOnScreen(xcb_window_t window) const {
  const auto geometry = xcb_get_geometry(connection_, window);
  const auto corner = xcb_translate_coordinates(connection_, window, screen_->root, 0, 0);
  const auto size = Xcb::answer(xcb_get_geometry_reply, connection_, geometry);
  const auto at = Xcb::answer(xcb_translate_coordinates_reply, connection_, corner);
  if (!size || !at) return std::nullopt;
  return QRect(at->dst_x, at->dst_y, size->width, size->height);
}

bool DockedWindow::isShown() const {
  const auto attributes = Xcb::answer(xcb_get_window_attributes_reply, connection_,
                                      xcb_get_window_attributes(connection_, window_));
  return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

std::optional<QImage> DockedWindow::backdrop(const QSize& size) const {
  Xcb::ignoreFailure(connection_,
                     xcb_clear_area_checked(connection_, 0, window_, 0, 0,
                                            static_cast<std::uint16_t>(size.width()),
                                            static_cast<std::uint16_t>(size.height())));
  return image(window_, {QPoint(), size});
}

std::optional<QColor> DockedWindow::colourAround(const DockedPlace& place, int freeAtEnds) const {
  const QRect own = place.visible();
  const QRect seen = own.adjusted(-kAround, -kAround, kAround, kAround) & place.bar & place.screen;
  const auto picture = own.isEmpty() ? std::nullopt : image(screen_->root, seen);
  if (!picture) return std::nullopt;
  const QRect painted = own.adjusted(freeAtEnds, 0, -freeAtEnds, 0).translated(-seen.topLeft());
  std::vector<QColor> colours;
  for (int y = 0; y < picture->height(); ++y) {
    for (int x = 0; x < picture->width(); ++x) {
      if (!painted.contains(x, y)) colours.push_back(picture->pixelColor(x, y));
    }
  }
  return typicalColour(std::move(colours));
}

std::optional<QImage> DockedWindow::image(xcb_window_t window, const QRect& part) const {
  const auto width = static_cast<std::uint16_t>(part.width());
  const auto height = static_cast<std::uint16_t>(part.height());
  const auto pixels =
      Xcb::answer(xcb_get_image_reply, connection_,
                  xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, window,
                                static_cast<std::int16_t>(part.x()),
                                static_cast<std::int16_t>(part.y()), width, height, ~0U));
  const auto bytes = static_cast<std::size_t>(width) * height * sizeof(QRgb);
  if (!pixels || pixels->depth != 24 ||
      static_cast<std::size_t>(xcb_get_image_data_length(pixels.get())) != bytes) {
    return std::nullopt;
  }
  return QImage(xcb_get_image_data(pixels.get()), width, height, QImage::Format_RGB32).copy();
}

}  // namespace Hilalor::Desktop
