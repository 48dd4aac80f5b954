#include "ui/FocusRing.hpp"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QPointer>
#include <QWidget>
#include <utility>

#include "ui/Colors.hpp"
#include "ui/Halo.hpp"
#include "ui/Shapes.hpp"

namespace Hilalor::Ui {
namespace {

constexpr double kRingWidth = 1.5;
constexpr int kReach = 4;  // Of a ring around a control.
constexpr const char* kRadius = "focusRadius";
constexpr const char* kGap = "focusGap";

void strokeRing(QPainter& painter, const QWidget& control, const QRectF& ring, double radius) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Colors::of(control).secondary, kRingWidth));
  painter.drawPath(smoothRect(ring, radius));
}

/// Which was pressed last in this program, a key or the pointer.
class LastPress final : public QObject {
 public:
  LastPress() : QObject(qApp) {
    qApp->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, [this] { markAround(); });
  }

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
    markAround();
  }

  void markAround() {
    delete ring_;
    QWidget* control = QApplication::focusWidget();
    if (!wasKey_ || control == nullptr || !control->property(kRadius).isValid()) return;
    ring_ = new Halo(*control, {kReach, kReach}, [control](QPainter& painter, const QRectF& rect) {
      const double gap = control->property(kGap).toDouble();
      const double out = gap + kRingWidth / 2;
      strokeRing(painter, *control, rect.adjusted(-out, -out, out, out),
                 control->property(kRadius).toDouble() + gap);
    });
  }

  bool wasKey_ = false;
  QPointer<Halo> ring_;
};

void watchPresses() {
  static QPointer<LastPress> last;
  if (!last) last = new LastPress;  // The application's child.
}

}  // namespace

void markFocusAround(QWidget& control, double radius, double gap) {
  watchPresses();
  control.setProperty(kRadius, radius);
  control.setProperty(kGap, gap);
}

}  // namespace Hilalor::Ui
