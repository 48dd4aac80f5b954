#include "ui/Halo.hpp"

#include <QCommonStyle>
#include <QPainter>
#include <utility>

namespace Hilalor::Ui {
namespace {

/// How far a frame reaches is asked of its style.
class HaloStyle final : public QCommonStyle {
 public:
  explicit HaloStyle(QSize reach) : reach_(reach) {}

  [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                const QWidget* widget) const override {
    if (metric == PM_FocusFrameHMargin) return reach_.width();
    if (metric == PM_FocusFrameVMargin) return reach_.height();
    return QCommonStyle::pixelMetric(metric, option, widget);
  }

  [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                              QStyleHintReturn* answer) const override {
    if (hint == SH_FocusFrame_AboveWidget) return 1;
    if (hint == SH_FocusFrame_Mask) return 0;
    return QCommonStyle::styleHint(hint, option, widget, answer);
  }

 private:
  QSize reach_;
};

}  // namespace

Halo::Halo(QWidget& control, QSize reach, std::function<void(QPainter&, const QRectF&)> paint)
    : reach_(reach), paint_(std::move(paint)) {
  auto* style = new HaloStyle(reach);
  style->setParent(this);
  setStyle(style);
  setWidget(&control);
  connect(&control, &QObject::destroyed, this, [this] {
    paint_ = nullptr;
    deleteLater();
  });
}

void Halo::paintEvent(QPaintEvent*) {
  if (!paint_) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF whole(rect());
  paint_(painter,
         whole.adjusted(reach_.width(), reach_.height(), -reach_.width(), -reach_.height()));
}

}  // namespace Hilalor::Ui
