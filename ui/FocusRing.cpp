#include "ui/FocusRing.hpp"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QPointer>
#include <QWidget>
#include <utility>

#include "ui/Colors.hpp"

namespace Hilalor::Ui {
namespace {

constexpr double kRingWidth = 1.5;

/// What the user pressed last, a key or the pointer, of all that the program is told.
class LastPress final : public QObject {
 public:
  LastPress() : QObject(qApp) { qApp->installEventFilter(this); }

  [[nodiscard]] bool wasKey() const { return wasKey_; }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      case QEvent::KeyPress:
        set(true);
        break;
      case QEvent::MouseButtonPress:
      case QEvent::TouchBegin:
        set(false);
        break;
      default:
        break;
    }
    return false;
  }

 private:
  void set(bool wasKey) {
    if (std::exchange(wasKey_, wasKey) == wasKey) return;
    if (QWidget* control = QApplication::focusWidget()) control->update();
  }

  bool wasKey_ = false;
};

const LastPress& lastPress() {
  static QPointer<LastPress> last;
  if (!last) last = new LastPress;  // The application's child.
  return *last;
}

}  // namespace

void paintFocusRing(QPainter& painter, const QWidget& control, double radius) {
  if (!lastPress().wasKey() || !control.hasFocus()) return;
  const double inset = kRingWidth / 2;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Colors::of(control).secondary, kRingWidth));
  painter.drawRoundedRect(QRectF(control.rect()).adjusted(inset, inset, -inset, -inset), radius,
                          radius);
  painter.restore();
}

}  // namespace Hilalor::Ui
