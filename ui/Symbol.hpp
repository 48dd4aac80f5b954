#pragma once

#include <QWidget>

#include "ui/Colors.hpp"
#include "ui/Icon.hpp"

namespace Hilalor::Ui {

/// An icon that stands beside a text.
class Symbol final : public QWidget {
 public:
  /// As large as suits type of that size (logical pixels).
  Symbol(Icon icon, int typeSize, Ink color);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Icon icon_;
  Ink color_;
};

}  // namespace Hilalor::Ui
