#include "desktop/panel/PanelWindow.hpp"

#include <xcb/shape.h>

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>

#include "desktop/display/Compositor.hpp"
#include "desktop/display/DisplayKind.hpp"
#include "desktop/display/Sway.hpp"
#include "desktop/display/XConnection.hpp"
#include "desktop/panel/SwayPlace.hpp"
#include "ui/Spoken.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr double kCornerRadius = 12;
constexpr int kShadowWidth = 20;
// The note is a little wider than the panel, and on Wayland may not stand out of its window.
constexpr int kSlimShadowWidth = 4;
constexpr const char* kShadowExtents = "_GTK_FRAME_EXTENTS";

Qt::WindowFlags panelFlags() {
  const Qt::WindowFlags flags =
      Qt::Tool | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint | Qt::WindowStaysOnTopHint;
  // Compositors give the keyboard to nothing but the windows that they manage.
  return displayKind() == DisplayKind::x11 ? flags | Qt::X11BypassWindowManagerHint : flags;
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

}  // namespace

PanelWindow::PanelWindow(QWidget* content, std::function<void(Dismissal)> onDismiss)
    : QWidget(nullptr, panelFlags()),
      content_(content),
      onDismiss_(std::move(onDismiss)),
      shadow_(shadowWidth()) {
  Ui::setSpokenRole(*this, QAccessible::Window);
  setWindowTitle(QStringLiteral("Hilalor"));
  setAccessibleName(QStringLiteral("Hilalor calendar"));
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

Ui::Surface PanelWindow::surface() const {
  return Ui::Surface::of(body(), kCornerRadius, shadow_);
}

void PanelWindow::cutToShape() {
  if (!testAttribute(Qt::WA_TranslucentBackground)) {
    setMask(Ui::cutShape(surface().outline));
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
  QPainter painter(this);
  Ui::paintSurface(painter, *this, surface());
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
