#pragma once

#include <QImage>
#include <QWidget>
#include <functional>
#include <optional>

#include "desktop/item/ItemMenu.hpp"
#include "desktop/item/ItemPainter.hpp"
#include "desktop/item/ItemPresence.hpp"
#include "ui/Spoken.hpp"

namespace Hilalor::Desktop {

/// The item as a window of our own: the whole title or a square. Tells of clicks on their release
/// and opens the menu.
class ItemFace : public QWidget, public Ui::SpokenPart {
 public:
  enum class Ground { transparent, opaque };
  enum class Shape { whole, square };

  /// Content and painter must outlive the face.
  ItemFace(const ItemContent& content, const ItemPainter& painter, Ground ground);

  /// How the face learns where it stands on the screen, in logical pixels; by itself it knows that
  /// only of a window that stands alone.
  void setPlaceFinder(std::function<std::optional<QRect>()> finder);

  /// Shows the whole title, as it does from the beginning, or a square.
  void setShape(Shape shape);
  [[nodiscard]] Shape shape() const { return shape_; }

  /// The part of the window that the eye sees, in device pixels from its top left; all of it as
  /// long as none is set.
  void setVisiblePart(const QRect& part);

  void setInk(const Ink& ink);

  /// What is drawn behind the title, from the top left; nothing if null.
  void setBackdrop(QImage backdrop);

  /// Where it stands on the screen, if that can be known.
  [[nodiscard]] std::optional<Rect> place() const;

  /// What the whole title takes at the given height, in logical pixels.
  [[nodiscard]] int naturalWidth(int barHeight) const;

  /// Takes the title from the content for the eye, the tooltip, the accessible name and the
  /// window's name. To be called once to begin with.
  void titleChanged();

  [[nodiscard]] QAccessibleInterface* makeSpoken() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  class Spoken;

  [[nodiscard]] QRect partToDrawIn() const;

  const ItemContent& content_;
  const ItemPainter& painter_;
  std::function<std::optional<QRect>()> placeFinder_;
  bool isDrawnElsewhere_ = false;
  Shape shape_ = Shape::whole;
  std::optional<QRect> visiblePart_;
  Ink ink_;
  QImage backdrop_;
  ItemMenu menu_;
};

}  // namespace Hilalor::Desktop
