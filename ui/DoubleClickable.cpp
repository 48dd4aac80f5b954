#include "ui/DoubleClickable.hpp"

#include <QMouseEvent>
#include <QVBoxLayout>

namespace Hilalor::Ui {

DoubleClickable::DoubleClickable(QWidget* part, std::function<void()> onDoubleClick)
    : onDoubleClick_(std::move(onDoubleClick)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(part);
}

void DoubleClickable::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) onDoubleClick_();
}

}  // namespace Hilalor::Ui
