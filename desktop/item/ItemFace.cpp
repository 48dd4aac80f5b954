#include "desktop/item/ItemFace.hpp"

#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <utility>

#include "ui/PlainToolTip.hpp"

namespace Hilalor::Desktop {
namespace {

Rect platformRect(const QRect& rect) {
  return {{static_cast<double>(rect.x()), static_cast<double>(rect.y())},
          {static_cast<double>(rect.width()), static_cast<double>(rect.height())}};
}

}  // namespace

/// A button that can be pressed, and has a menu.
class ItemFace::Spoken final : public Ui::SpokenControl {
 public:
  explicit Spoken(ItemFace& face) : SpokenControl(&face, QAccessible::Button), face_(face) {}

  [[nodiscard]] QStringList actionNames() const override {
    return {pressAction(), showMenuAction()};
  }
  void doAction(const QString& action) override {
    if (action == showMenuAction())
      return face_.menu_.open(face_.content_.menu, face_.placeFinder_(), face_.content_.appearance);
    if (action == pressAction()) press();
  }

 protected:
  // Without a place of the pointer, as by the keyboard: the panel takes that.
  void press() override { face_.content_.tell({}); }

 private:
  ItemFace& face_;
};

ItemFace::ItemFace(const ItemContent& content, const ItemPainter& painter, Ground ground)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint |
                           Qt::WindowDoesNotAcceptFocus),
      content_(content),
      painter_(painter),
      placeFinder_([this] { return std::optional(geometry()); }) {
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_AlwaysShowToolTips);
  setAttribute(Qt::WA_QuitOnClose, false);
  setAttribute(ground == Ground::transparent ? Qt::WA_TranslucentBackground
                                             : Qt::WA_OpaquePaintEvent);
}

void ItemFace::setPlaceFinder(std::function<std::optional<QRect>()> finder) {
  placeFinder_ = std::move(finder);
}

void ItemFace::setShape(Shape shape) {
  if (shape == shape_) return;
  shape_ = shape;
  update();
}

void ItemFace::setVisiblePart(const QRect& part) {
  if (part == visiblePart_) return;
  visiblePart_ = part;
  update();
}

void ItemFace::setInk(const Ink& ink) {
  if (ink == ink_) return;
  ink_ = ink;
  update();
}

void ItemFace::setBackdrop(QImage backdrop) {
  backdrop_ = std::move(backdrop);
  update();
}

std::optional<Rect> ItemFace::place() const {
  const auto found = isDrawnElsewhere_ ? std::nullopt : placeFinder_();
  if (!found) return std::nullopt;
  return platformRect(*found);
}

int ItemFace::naturalWidth(int barHeight) const {
  return painter_.naturalWidth(content_.title, barHeight);
}

void ItemFace::titleChanged() {
  const auto title = content_.wholeTitle();
  setWindowTitle(title);
  setAccessibleName(title);
  Ui::setPlainToolTip(*this, title);
  update();
}

QAccessibleInterface* ItemFace::makeSpoken() {
  return new Spoken(*this);
}

void ItemFace::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (testAttribute(Qt::WA_OpaquePaintEvent)) painter.fillRect(rect(), palette().window());
  if (!backdrop_.isNull()) painter.drawImage(QPoint(), backdrop_);
  const double scale = devicePixelRatioF();
  const QRect part = partToDrawIn();
  if (shape_ == Shape::square) {
    // A square has few pixels; at broken scales none is to be half one.
    painter.scale(1 / scale, 1 / scale);
    return painter_.drawCompact(painter, part, content_.title);
  }
  painter.translate(QPointF(part.topLeft()) / scale);
  const QSize size = (QSizeF(part.size()) / scale).toSize();
  painter_.drawTitle(painter, {QPoint(), size}, content_.title, ink_);
}

/// In device pixels.
QRect ItemFace::partToDrawIn() const {
  const QRect all(QPoint(), (QSizeF(size()) * devicePixelRatioF()).toSize());
  return visiblePart_ ? all & *visiblePart_ : all;
}

void ItemFace::mouseReleaseEvent(QMouseEvent* event) {
  const bool isLeft = event->button() == Qt::LeftButton;
  const bool isRight = event->button() == Qt::RightButton;
  if (!(isLeft || isRight) || !rect().contains(event->position().toPoint())) return;

  const auto item = placeFinder_();
  // A tray that draws copies of its windows elsewhere gives itself away: the pointer is not on us.
  isDrawnElsewhere_ = !item || !item->contains(event->globalPosition().toPoint());
  StatusItemClick click;
  click.button = isLeft ? StatusItemClick::Button::left : StatusItemClick::Button::right;
  click.pointer = {event->globalPosition().x(), event->globalPosition().y()};
  const QPointer<ItemFace> alive(this);
  content_.tell(click);
  if (isRight && alive)
    menu_.open(content_.menu, isDrawnElsewhere_ ? std::nullopt : item, content_.appearance);
}

}  // namespace Hilalor::Desktop
