#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

#include "rules/map/MapViewport.hpp"
#include "screens/map/MapLabels.hpp"
#include "screens/map/MapTiles.hpp"
#include "ui/Animation.hpp"

class QTouchEvent;

namespace Hilalor::Screens {

/// A pin on a map, with a title under it.
struct MapAnnotation {
  LocationCoordinate coordinate;
  QString title;
};

/// A map of the world to look around in: by dragging, the wheel, double clicks, two fingers, the
/// arrow keys, plus and minus. Draws what it shows anew for every frame.
class MapView final : public QWidget {
 public:
  explicit MapView(std::unique_ptr<WorldMap> map);

  [[nodiscard]] const WorldMap& map() const { return tiles_.map(); }

  /// Shows the region at once. Until the user moves the map, a map of another size shows it too.
  void setRegion(const MapRegion& region);

  /// The one pin, or none.
  void setAnnotation(std::optional<MapAnnotation> annotation);

  enum class Zoom { in, out };
  /// By a step, around the middle.
  void zoom(Zoom direction);

  /// By the map's own projection, from a place in the widget.
  [[nodiscard]] LocationCoordinate coordinateAt(QPointF place) const;

  [[nodiscard]] const MapViewport& viewport() const { return viewport_; }

  /// A press and release at the same place of the widget.
  std::function<void(QPointF)> onClick;

  /// Text typed while the map has the keyboard.
  std::function<void(const QString&)> onType;

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void childEvent(QChildEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void press(QPointF place);
  void drag(QPointF from, QPointF to);
  void release(QPointF place);
  /// Of everything, without a click.
  void letGo();
  void touch(const QTouchEvent& event);
  void pinch(QPointF one, QPointF other);

  void pan(QPointF by);
  void zoomBy(double doublings, QPointF fixed);
  /// Gets there in a moment.
  void glideBy(double doublings, QPointF fixed);
  void glideOn();

  /// Where no names of places can stand.
  [[nodiscard]] std::vector<QRectF> takenRooms() const;
  [[nodiscard]] std::optional<PinRooms> pinRooms() const;
  [[nodiscard]] QRectF titleRect(QPointF tip) const;
  [[nodiscard]] QRectF attributionRect() const;
  void paintPin(QPainter& painter, const MapColors& colors) const;
  void paintAttribution(QPainter& painter, const MapColors& colors) const;

  MapTiles tiles_;
  MapLabels labels_;
  MapViewport viewport_;
  QString attribution_;
  std::optional<MapRegion> region_;  // Until the user has moved the map.
  std::optional<MapAnnotation> annotation_;

  std::optional<QPointF> pressedAt_;  // While this may become a click.
  std::optional<QPointF> draggedTo_;

  struct Pinch {
    QPointF middle;
    double width;
  };
  std::optional<Pinch> pinch_;  // While two fingers are down.

  double glided_ = 0;  // As far as it came, in doublings of the scale since the beginning.
  double glideGoal_ = 0;
  QPointF glideAround_;
  Ui::Animation glide_;
};

}  // namespace Hilalor::Screens
