#include "desktop/panel/PanelWindow.hpp"

#include <xcb/shape.h>

#include <qdrawutil.h>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QtMath>
#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "desktop/display/DisplayKind.hpp"
#include "desktop/display/Sway.hpp"
#include "desktop/display/XConnection.hpp"
#include "desktop/panel/SwayPlace.hpp"
#include "ui/Colors.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr double kCornerRadius = 12;
constexpr int kShadowWidth = 20;
// The note is a little wider than the panel, and on Wayland may not stand out of its window.
constexpr int kSlimShadowWidth = 4;
constexpr double kShadowOpacity = 0.28;
constexpr const char* kShadowExtents = "_GTK_FRAME_EXTENTS";

Qt::WindowFlags panelFlags() {
  const Qt::WindowFlags flags =
      Qt::Tool | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint | Qt::WindowStaysOnTopHint;
  // Compositors give the keyboard to nothing but the windows that they manage.
  return displayKind() == DisplayKind::x11 ? flags | Qt::X11BypassWindowManagerHint : flags;
}

/// Whether somebody mixes windows, by the owner of the screen's selection for it (Extended Window
/// Manager Hints).
bool hasCompositor() {
  if (displayKind() != DisplayKind::x11) return true;
  const auto server = XConnection::open();
  if (!server) return false;
  const auto selection = server->atom("_NET_WM_CM_S" + std::to_string(server->screenNumber()));
  const auto reply = Xcb::answer(xcb_get_selection_owner_reply, server->get(),
                                 xcb_get_selection_owner(server->get(), selection));
  return reply && reply->owner != XCB_WINDOW_NONE;
}

/// Whether the window manager counts a declared shadow as none of the window.
bool isShadowKnown() {
  const auto server = XConnection::open();
  if (!server) return false;
  const auto supported = server->numbers(server->root(), "_NET_SUPPORTED");
  return std::ranges::find(supported, server->atom(kShadowExtents)) != supported.end();
}

/// Where a compositor manages the window, a shadow that it does not know takes presses on the bar.
int shadowWidth() {
  if (displayKind() == DisplayKind::wayland) return kSlimShadowWidth;
  const bool hasShadow = displayKind() == DisplayKind::x11 ? hasCompositor() : isShadowKnown();
  return hasShadow ? kShadowWidth : 0;
}

QPainterPath rounded(const QRectF& rect) {
  QPainterPath path;
  path.addRoundedRect(rect, kCornerRadius, kCornerRadius);
  return path;
}

/// A small picture of the shadow around a rounded rectangle, whose middle can be stretched.
QPixmap shadowPicture() {
  constexpr int kReach = kShadowWidth + static_cast<int>(kCornerRadius);
  constexpr int kSide = 2 * kReach + 1;
  QImage picture(kSide, kSide, QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      const double dx = std::abs(x - kReach);
      const double dy = std::abs(y - kReach);
      const double outside = (std::hypot(dx, dy) - kCornerRadius) / kShadowWidth;
      const double light = std::clamp(outside, 0.0, 1.0);
      const double opacity = kShadowOpacity * (1 - light) * (1 - light);
      picture.setPixel(x, y, qRgba(0, 0, 0, qRound(255 * opacity)));
    }
  }
  return QPixmap::fromImage(picture);
}

void paintShadow(QPainter& painter, const QRect& window) {
  static const QPixmap picture = shadowPicture();
  const int fixed = picture.width() / 2;
  qDrawBorderPixmap(&painter, window, QMargins(fixed, fixed, fixed, fixed), picture);
}

}  // namespace

PanelWindow::PanelWindow(QWidget* content, std::function<void(Dismissal)> onDismiss)
    : QWidget(nullptr, panelFlags()),
      content_(content),
      onDismiss_(std::move(onDismiss)),
      shadow_(shadowWidth()) {
  setWindowTitle(QStringLiteral("Hilalor"));
  setAttribute(Qt::WA_ShowWithoutActivating, displayKind() == DisplayKind::x11);
  setAttribute(Qt::WA_AlwaysShowToolTips);
  setAttribute(Qt::WA_TranslucentBackground, hasCompositor());
  content->setParent(this);
  if (Sway::isHere()) new SwayPlace(*this);
}

void PanelWindow::setFrame(const QRect& frame) {
  const QRect whole = frame.adjusted(-shadow_, -shadow_, shadow_, shadow_);
  // What cannot be made larger floats, also where other windows are tiled.
  if (displayKind() != DisplayKind::x11) setFixedSize(whole.size());
  setGeometry(whole);
  content_->setGeometry(body());
  cutToShape();
  if (!isVisible()) Sway::placeWhenShown(windowTitle(), whole.topLeft());
}

QRect PanelWindow::frame() const {
  return geometry().adjusted(shadow_, shadow_, -shadow_, -shadow_);
}

QRect PanelWindow::body() const {
  return rect().adjusted(shadow_, shadow_, -shadow_, -shadow_);
}

void PanelWindow::cutToShape() {
  if (!testAttribute(Qt::WA_TranslucentBackground)) {
    setMask(QRegion(rounded(body()).toFillPolygon().toPolygon()));
    return;
  }
  // What lies under the shadow is not covered by it for the mouse.
  if (shadow_ == 0 || !isOnX11()) return;
  const double ratio = devicePixelRatioF();
  const auto pixels = [ratio](int length) { return std::lround(length * ratio); };
  const xcb_rectangle_t seen{static_cast<std::int16_t>(pixels(shadow_)),
                             static_cast<std::int16_t>(pixels(shadow_)),
                             static_cast<std::uint16_t>(pixels(body().width())),
                             static_cast<std::uint16_t>(pixels(body().height()))};
  xcb_shape_rectangles(qtConnection(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT,
                       XCB_CLIP_ORDERING_UNSORTED, static_cast<xcb_window_t>(winId()), 0, 0, 1,
                       &seen);
  if (displayKind() == DisplayKind::xwayland) declareShadow();
}

void PanelWindow::declareShadow() {
  const auto width = static_cast<std::uint32_t>(std::lround(shadow_ * devicePixelRatioF()));
  const std::array<std::uint32_t, 4> extents{width, width, width, width};
  const auto server = XConnection::open();
  if (!server) return;
  xcb_change_property(qtConnection(), XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(winId()),
                      server->atom(kShadowExtents), XCB_ATOM_CARDINAL, 32, extents.size(),
                      extents.data());
}

bool PanelWindow::event(QEvent* event) {
  // Without a part that has it, the keyboard is the content's.
  if (event->type() == QEvent::WindowActivate && focusWidget() == nullptr)
    content_->setFocus(Qt::ActiveWindowFocusReason);
  return QWidget::event(event);
}

void PanelWindow::paintEvent(QPaintEvent*) {
  const Ui::Colors& colors = Ui::Colors::of(*this);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (shadow_ > 0) paintShadow(painter, rect());
  painter.setPen(colors.separator);
  painter.setBrush(colors.windowBackground);
  painter.drawPath(rounded(QRectF(body()).adjusted(0.5, 0.5, -0.5, -0.5)));
}

void PanelWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return dismiss(Dismissal::byEscape);
  QWidget::keyPressEvent(event);
}

void PanelWindow::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  dismiss(Dismissal::byDesktop);
}

void PanelWindow::childEvent(QChildEvent* event) {
  QWidget::childEvent(event);
  auto* window = qobject_cast<QWidget*>(event->child());
  const bool isPopover = window != nullptr && window->windowType() == Qt::Tool;
  if (!event->polished() || !isPopover || !Sway::isHere()) return;
  window->setWindowTitle(QStringLiteral("Note"));
  new SwayPlace(*window);
}

void PanelWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  // Qt may have made another window for it since the shape was cut.
  cutToShape();
}

void PanelWindow::dismiss(Dismissal how) const {
  // A copy, since whoever is told may take it away.
  const auto told = onDismiss_;
  if (told) told(how);
}

}  // namespace Hilalor::Desktop
