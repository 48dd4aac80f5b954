#include "ui/Picture.hpp"

#include <QPainter>
#include <QPainterPath>

namespace Hilalor::Ui {

Picture::Picture(const QPixmap& picture, int side, double cornerRadius)
    : picture_(picture), cornerRadius_(cornerRadius) {
  setFixedSize(side, side);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Picture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  // A brush, since clipping to the outline would leave its edge jagged.
  const double scale = static_cast<double>(width()) / picture_.width();
  QBrush brush(picture_);
  brush.setTransform(QTransform::fromScale(scale, scale));
  painter.setPen(Qt::NoPen);
  painter.setBrush(brush);
  painter.drawRoundedRect(rect(), cornerRadius_, cornerRadius_);
}

}  // namespace Hilalor::Ui
