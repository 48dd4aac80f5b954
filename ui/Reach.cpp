#include "ui/Reach.hpp"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <algorithm>

#include "ui/Button.hpp"
#include "ui/Colors.hpp"
#include "ui/Halo.hpp"
#include "ui/Shapes.hpp"

namespace Hilalor::Ui {
namespace {

constexpr int kLeastSide = 26;
constexpr double kRadius = 6;
constexpr double kHoverOpacity = 0.07;
constexpr double kDownOpacity = 0.14;

int missing(int side) {
  return std::max(0, (kLeastSide - side + 1) / 2);
}

/// How far the ground of the button reaches out of it. A box is its own ground.
QSize groundReach(const Button& button) {
  return button.isBoxed() ? QSize(0, 0)
                          : QSize(std::max(2, missing(button.width())), missing(button.height()));
}

/// Whether a press there would be for nobody.
bool isFree(const QWidget& widget) {
  return qobject_cast<const QAbstractButton*>(&widget) == nullptr &&
         widget.focusPolicy() == Qt::NoFocus;
}

/// The button in whose reach the place is and whose middle is nearest, among those of its window.
Button* buttonAt(const QWidget& widget, QPoint global) {
  Button* nearest = nullptr;
  int least = 0;
  for (auto* child : widget.window()->findChildren<QAbstractButton*>()) {
    auto* button = dynamic_cast<Button*>(child);
    if (button == nullptr || !button->isVisible() || !button->isEnabled()) continue;
    const QPoint place = button->mapFromGlobal(global);
    const int distance = (place - button->rect().center()).manhattanLength();
    if (!reachOf(*button).contains(place) || (nearest != nullptr && distance >= least)) continue;
    nearest = button;
    least = distance;
  }
  return nearest;
}

class Reach final : public QObject {
 public:
  Reach() : QObject(qApp) { qApp->installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (!watched->isWidgetType()) return false;
    auto& widget = static_cast<QWidget&>(*watched);
    switch (event->type()) {
      case QEvent::MouseMove:
        return pointAt(widget, static_cast<QMouseEvent&>(*event));
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
        return press(widget, static_cast<QMouseEvent&>(*event));
      case QEvent::MouseButtonRelease:
        return release(static_cast<QMouseEvent&>(*event));
      case QEvent::Leave:
        if (widget.isWindow()) hover(nullptr);
        return false;
      default:
        return false;
    }
  }

 private:
  bool pointAt(const QWidget& widget, const QMouseEvent& event) {
    // The end of a press may have been told to nobody, as when a key closed the window.
    if (!event.buttons().testFlag(Qt::LeftButton)) pressed_ = nullptr;
    if (pressed_ != nullptr) return tell(event);
    if (event.buttons() != Qt::NoButton) return false;
    const QPoint global = event.globalPosition().toPoint();
    Button* under = dynamic_cast<Button*>(const_cast<QWidget*>(&widget));
    if (under == nullptr && isFree(widget)) under = buttonAt(widget, global);
    hover(under != nullptr && under->isEnabled() ? under : nullptr);
    return false;
  }

  bool press(const QWidget& widget, const QMouseEvent& event) {
    // Told by ourselves, or for somebody else.
    if (isTelling_ || event.button() != Qt::LeftButton) return false;
    pressed_ = isFree(widget) ? buttonAt(widget, event.globalPosition().toPoint()) : nullptr;
    return pressed_ != nullptr && tell(event);
  }

  bool release(const QMouseEvent& event) {
    if (isTelling_ || pressed_ == nullptr || event.button() != Qt::LeftButton) return false;
    tell(event);
    pressed_ = nullptr;
    return true;
  }

  /// Hands the button what the pointer does around it.
  bool tell(const QMouseEvent& event) {
    if (isTelling_) return false;
    isTelling_ = true;
    const auto type =
        event.type() == QEvent::MouseButtonDblClick ? QEvent::MouseButtonPress : event.type();
    QMouseEvent told(type, pressed_->mapFromGlobal(event.globalPosition()), event.globalPosition(),
                     event.button(), event.buttons(), event.modifiers());
    QCoreApplication::sendEvent(pressed_, &told);
    isTelling_ = false;
    return true;
  }

  void hover(Button* button) {
    if (button == hovered_ && (button == nullptr || ground_ != nullptr)) return;
    hovered_ = button;
    delete ground_;
    if (button == nullptr) return;
    const QSize reach = groundReach(*button);
    ground_ = new Halo(*button, reach, [button, reach](QPainter& painter, const QRectF& rect) {
      const double opacity = button->isDown() ? kDownOpacity : kHoverOpacity;
      const QRectF ground =
          rect.adjusted(-reach.width(), -reach.height(), reach.width(), reach.height());
      const Colors& colors = Colors::of(*button);
      painter.fillPath(smoothRect(ground, kRadius), faded(colors.primary, opacity));
      if (colors.contrast == Contrast::high)
        strokeWithin(painter, ground, kRadius, QPen(colors.primary, 1));
    });
    QObject::connect(button, &QAbstractButton::pressed, ground_, qOverload<>(&QWidget::update));
    QObject::connect(button, &QAbstractButton::released, ground_, qOverload<>(&QWidget::update));
  }

  QPointer<Button> hovered_;
  QPointer<Button> pressed_;
  QPointer<Halo> ground_;
  bool isTelling_ = false;
};

}  // namespace

QRect reachOf(const Button& button) {
  const QSize more(missing(button.width()), missing(button.height()));
  return button.rect().adjusted(-more.width(), -more.height(), more.width(), more.height());
}

void answerWithinReach() {
  static QPointer<Reach> reach;
  if (!reach) reach = new Reach;  // The application's child.
}

}  // namespace Hilalor::Ui
