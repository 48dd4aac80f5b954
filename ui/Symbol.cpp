#include "ui/Symbol.hpp"

#include <QPainter>

#include "ui/TextStyle.hpp"

namespace Hilalor::Ui {

Symbol::Symbol(Icon icon, int typeSize, Ink color) : icon_(icon), color_(color) {
  const int side = iconSide(byType(typeSize));
  setFixedSize(side, side);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Symbol::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintIcon(painter, icon_, rect(), Colors::of(*this).*color_);
}

}  // namespace Hilalor::Ui
