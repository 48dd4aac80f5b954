#include "desktop/panel/SwayPlace.hpp"

#include <QEvent>
#include <QWidget>

#include "desktop/display/Sway.hpp"

namespace Hilalor::Desktop {

SwayPlace::SwayPlace(QWidget& window) : QObject(&window), window_(window), corner_(window.pos()) {
  window.installEventFilter(this);
}

bool SwayPlace::eventFilter(QObject* watched, QEvent* event) {
  const bool isMove = event->type() == QEvent::Move;
  const bool isByCompositor = isMove && event->spontaneous();
  if (event->type() == QEvent::Show || (isMove && !isByCompositor)) corner_ = window_.pos();
  if (isByCompositor && window_.pos() != corner_) Sway::place(window_.windowTitle(), corner_);
  return QObject::eventFilter(watched, event);
}

}  // namespace Hilalor::Desktop
