#include "desktop/display/LinuxScreens.hpp"

#include <QGuiApplication>
#include <QScreen>
#include <array>

#include "desktop/display/Sway.hpp"
#include "desktop/display/XConnection.hpp"

namespace Hilalor::Desktop {
namespace {

/// What a bar keeps free at the edges of the X screen (_NET_WM_STRUT_PARTIAL of the Extended Window
/// Manager Hints 1.5), as rectangles in the server's pixels.
std::array<QRect, 4> strutRects(const std::vector<std::uint32_t>& strut, const QSize& root) {
  std::array<int, 12> v{};
  for (std::size_t index = 0; index < v.size(); ++index)
    v[index] = static_cast<int>(strut[index]);
  const auto [left, right, top, bottom, leftFrom, leftTo, rightFrom, rightTo, topFrom, topTo,
              bottomFrom, bottomTo] = v;
  return {QRect(QPoint(0, leftFrom), QPoint(left - 1, leftTo)),
          QRect(QPoint(root.width() - right, rightFrom), QPoint(root.width() - 1, rightTo)),
          QRect(QPoint(topFrom, 0), QPoint(topTo, top - 1)),
          QRect(QPoint(bottomFrom, root.height() - bottom), QPoint(bottomTo, root.height() - 1))};
}

/// Cuts the bar off the side of the screen that it lies along.
void cut(QRect& visible, const QRect& screen, const std::array<QRect, 4>& bars) {
  const auto overlap = [&](const QRect& bar) { return bar.isValid() ? bar & screen : QRect(); };
  if (const QRect bar = overlap(bars[0]); bar.isValid())
    visible.setLeft(std::max(visible.left(), bar.right() + 1));
  if (const QRect bar = overlap(bars[1]); bar.isValid())
    visible.setRight(std::min(visible.right(), bar.left() - 1));
  if (const QRect bar = overlap(bars[2]); bar.isValid())
    visible.setTop(std::max(visible.top(), bar.bottom() + 1));
  if (const QRect bar = overlap(bars[3]); bar.isValid())
    visible.setBottom(std::min(visible.bottom(), bar.top() - 1));
}

/// The struts of every window that the window manager lists.
std::vector<std::array<QRect, 4>> bars() {
  std::vector<std::array<QRect, 4>> found;
  const auto server = XConnection::open();
  if (!server) return found;
  const QSize root(server->screen().width_in_pixels, server->screen().height_in_pixels);
  for (const xcb_window_t window : server->numbers(server->root(), "_NET_CLIENT_LIST")) {
    const auto strut = server->numbers(window, "_NET_WM_STRUT_PARTIAL");
    if (strut.size() == 12) found.push_back(strutRects(strut, root));
  }
  return found;
}

/// The compositor's own bar at the top, where it lies over X windows and nobody tells of it.
int heightOfUntoldBar() {
  constexpr int kWestonBar = 32;
  const auto server = XConnection::open();
  if (!server) return 0;
  const auto manager = server->numbers(server->root(), "_NET_SUPPORTING_WM_CHECK");
  const bool isWeston =
      !manager.empty() && server->text(manager.front(), "_NET_WM_NAME") == "Weston WM";
  return isWeston ? kWestonBar : 0;
}

Rect rect(const QRectF& from) {
  return {{from.x(), from.y()}, {from.width(), from.height()}};
}

}  // namespace

std::vector<Screen> LinuxScreens::all() const {
  std::vector<Screen> all;
  const auto screens = QGuiApplication::screens();
  const auto struts = screens.size() > 1 ? bars() : decltype(bars())();
  const auto free = Sway::freeAreas();
  static const int untoldBar = heightOfUntoldBar();
  for (const QScreen* screen : screens) {
    Screen found{.frame = rect(screen->geometry()),
                 .visibleFrame = rect(screen->availableGeometry().adjusted(0, untoldBar, 0, 0))};
    if (!struts.empty()) {
      const QRect frame = nativeFrame(*screen);
      QRect visible = frame;
      for (const auto& bar : struts)
        cut(visible, frame, bar);
      found.visibleFrame = logicalRect(visible, *screen);
    }
    for (const QRect& area : free) {
      if (screen->geometry().contains(area)) found.visibleFrame = rect(area);
    }
    all.push_back(found);
  }
  return all;
}

}  // namespace Hilalor::Desktop
