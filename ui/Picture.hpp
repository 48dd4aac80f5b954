#pragma once

#include <QPixmap>
#include <QWidget>

namespace Hilalor::Ui {

/// A square picture with rounded corners.
class Picture final : public QWidget {
 public:
  /// Side and radius in logical pixels; the picture is scaled to them.
  Picture(const QPixmap& picture, int side, double cornerRadius);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap picture_;
  double cornerRadius_;
};

}  // namespace Hilalor::Ui
