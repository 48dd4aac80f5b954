#pragma once

#include <QFocusFrame>
#include <functional>

class QPainter;

namespace Hilalor::Ui {

/// Something painted over a control and around it, where the control's own room ends. It follows
/// the control, lets the mouse through, and does not exist for a screen reader. Delete it to remove
/// it.
class Halo final : public QFocusFrame {
 public:
  /// Reaches that far out of the control at the sides, and above and below. `paint` is given the
  /// control's rectangle.
  Halo(QWidget& control, QSize reach, std::function<void(QPainter&, const QRectF&)> paint);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QSize reach_;
  std::function<void(QPainter&, const QRectF&)> paint_;
};

}  // namespace Hilalor::Ui
