#include "desktop/panel/PanelWindow.hpp"

#include <xcb/shape.h>

#include <qdrawutil.h>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QtMath>
#include <algorithm>
#include <cmath>
#include <string>

#include "desktop/XConnection.hpp"
#include "ui/Colors.hpp"

namespace Hilalor {
namespace {

constexpr double kCornerRadius = 12;
constexpr int kShadowWidth = 20;
constexpr double kShadowOpacity = 0.28;

Qt::WindowFlags panelFlags() {
  const Qt::WindowFlags looks = Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint;
  // Wayland lets a program place and raise nothing but a popup.
  if (QGuiApplication::platformName() == QStringLiteral("wayland")) return Qt::Popup | looks;
  return Qt::Tool | Qt::WindowStaysOnTopHint | Qt::X11BypassWindowManagerHint | looks;
}

/// Whether somebody mixes windows, by the owner of the screen's selection for it (Extended Window
/// Manager Hints).
bool hasCompositor() {
  if (!isOnX11()) return QGuiApplication::platformName() == QStringLiteral("wayland");
  const auto server = XConnection::open();
  if (!server) return false;
  const auto selection = server->atom("_NET_WM_CM_S" + std::to_string(server->screenNumber()));
  const auto reply = Xcb::answer(xcb_get_selection_owner_reply, server->get(),
                                 xcb_get_selection_owner(server->get(), selection));
  return reply && reply->owner != XCB_WINDOW_NONE;
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
      shadow_(hasCompositor() ? kShadowWidth : 0) {
  setWindowTitle(QStringLiteral("Hilalor"));
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_AlwaysShowToolTips);
  setAttribute(Qt::WA_TranslucentBackground, shadow_ > 0);
  content->setParent(this);
}

void PanelWindow::setFrame(const QRect& frame) {
  setGeometry(frame.adjusted(-shadow_, -shadow_, shadow_, shadow_));
  content_->setGeometry(body());
  cutToShape();
}

QRect PanelWindow::body() const {
  return rect().adjusted(shadow_, shadow_, -shadow_, -shadow_);
}

void PanelWindow::cutToShape() {
  if (shadow_ == 0) {
    setMask(QRegion(rounded(body()).toFillPolygon().toPolygon()));
    return;
  }
  // What lies under the shadow is not covered by it for the mouse.
  if (!isOnX11()) return;
  const double ratio = devicePixelRatioF();
  const auto pixels = [ratio](int length) { return std::lround(length * ratio); };
  const xcb_rectangle_t seen{static_cast<std::int16_t>(pixels(shadow_)),
                             static_cast<std::int16_t>(pixels(shadow_)),
                             static_cast<std::uint16_t>(pixels(body().width())),
                             static_cast<std::uint16_t>(pixels(body().height()))};
  xcb_shape_rectangles(qtConnection(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT,
                       XCB_CLIP_ORDERING_UNSORTED, static_cast<xcb_window_t>(winId()), 0, 0, 1,
                       &seen);
}

bool PanelWindow::event(QEvent* event) {
  // Without a part that has it, the keyboard is the content's.
  if (event->type() == QEvent::WindowActivate && focusWidget() == nullptr)
    content_->setFocus(Qt::ActiveWindowFocusReason);
  return QWidget::event(event);
}

void PanelWindow::paintEvent(QPaintEvent*) {
  const Colors& colors = Colors::of(*this);
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

}  // namespace Hilalor
