#include "desktop/item/ItemStrip.hpp"

#include <QBitmap>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QScreen>

#include "desktop/LinuxScreens.hpp"
#include "desktop/XConnection.hpp"

namespace Hilalor {
namespace {

constexpr int kHeight = 24;
constexpr int kCornerRadius = 6;
const QColor kGround(38, 43, 40);

/// Square at the edges of the screen, round at the corner that stands free.
QBitmap shape(const QSize& size) {
  QBitmap mask(size);
  mask.clear();
  QPainter painter(&mask);
  painter.setBrush(Qt::color1);
  painter.drawRoundedRect(
      QRect(QPoint(0, -2 * kCornerRadius), size + QSize(2 * kCornerRadius, 2 * kCornerRadius - 1)),
      kCornerRadius, kCornerRadius);
  return mask;
}

}  // namespace

ItemStrip::ItemStrip(const ItemContent& content, const ItemPainter& painter)
    : face_(content, painter, ItemFace::Ground::opaque) {
  face_.setPalette(QPalette(kGround));
  face_.setInk(Ink::on(kGround));
  face_.titleChanged();
  connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, [this] {
    watchScreen();
    put();
  });
  watchScreen();
  put();
  face_.show();
}

void ItemStrip::titleChanged() {
  face_.titleChanged();
  lookAround();
}

void ItemStrip::lookAround() {
  put();
  // Nobody keeps other windows below one that no window manager knows.
  face_.raise();
  // Qt would keep the request until the display has something to tell.
  if (isOnX11()) xcb_flush(qtConnection());
}

void ItemStrip::watchScreen() {
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    connect(screen, &QScreen::availableGeometryChanged, this, [this] { put(); });
  }
}

void ItemStrip::put() {
  const auto screens = LinuxScreens().all();
  if (screens.empty()) return;
  const Rect& free = screens.front().visibleFrame;
  const QSize size(face_.naturalWidth(kHeight), kHeight);
  const QPointF corner(free.origin.x + free.size.width - size.width(), free.origin.y);
  const QRect place(corner.toPoint(), size);
  if (place == face_.geometry()) return;
  face_.setGeometry(place);
  face_.setMask(shape(size));
}

}  // namespace Hilalor
