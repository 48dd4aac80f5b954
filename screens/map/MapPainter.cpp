#include "screens/map/MapPainter.hpp"

#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace Hilalor::Screens {

using namespace Ui;

namespace {

const MapColors kLight{
    .water = {172, 211, 236},
    .land = {246, 243, 234},
    .countryBorder = {164, 154, 168},
    .areaBorder = {214, 208, 206},
    .place = {52, 50, 56},
    .country = {112, 86, 104},
    .sea = {44, 84, 122},
    .placeHalo = {255, 255, 255, 200},
};

const MapColors kDark{
    .water = {26, 44, 60},
    .land = {58, 61, 62},
    .countryBorder = {146, 142, 152},
    .areaBorder = {82, 84, 88},
    .place = {236, 236, 236},
    .country = {196, 182, 204},
    .sea = {142, 178, 208},
    .placeHalo = {24, 26, 28, 200},
};

// Borders of areas crowd a map of half the world.
constexpr double kAreaBordersFrom = 14;  // Pixels per degree.
// What is nearer than this to the point before it cannot be told from it.
constexpr double kLeastStep = 0.6;

/// A tile's rectangle on the screen. Its edges lie between pixels of the device, so that no
/// background shines through where two tiles meet.
QRectF onPixels(const VisibleTile& tile, double ratio) {
  const auto edge = [ratio](double place) { return std::round(place * ratio) / ratio; };
  const QPointF topLeft(edge(tile.left), edge(tile.top));
  return {topLeft, QPointF(edge(tile.right), edge(tile.bottom))};
}

/// Draws the shapes of one tile.
class TilePainter {
 public:
  TilePainter(QPainter& painter, const TileContent& content, const QRectF& rect)
      : painter_(painter), content_(content), rect_(rect) {}

  void fill(MapLayer layer, const QColor& color) {
    // Many small paths are filled faster than one of many rings.
    content_.forEach(layer, [&](std::span<const TilePoint> ring) {
      path_.clear();
      add(ring);
      painter_.fillPath(path_, color);
    });
  }

  void stroke(MapLayer layer, const QColor& color) {
    path_.clear();
    content_.forEach(layer, [&](std::span<const TilePoint> line) { add(line); });
    // One pixel of the device: whatever is wider takes ten times as long.
    QPen pen(color, 1);
    pen.setCosmetic(true);
    painter_.strokePath(path_, pen);
  }

 private:
  /// Without the points that would not be seen.
  void add(std::span<const TilePoint> points) {
    if (points.size() < 2) return;
    QPointF last = place(points.front());
    path_.moveTo(last);
    for (const TilePoint& point : points.subspan(1, points.size() - 2)) {
      const QPointF next = place(point);
      if (std::abs(next.x() - last.x()) + std::abs(next.y() - last.y()) < kLeastStep) continue;
      path_.lineTo(next);
      last = next;
    }
    path_.lineTo(place(points.back()));
  }

  [[nodiscard]] QPointF place(TilePoint point) const {
    return {rect_.left() + static_cast<double>(point.x) * rect_.width(),
            rect_.top() + static_cast<double>(point.y) * rect_.height()};
  }

  QPainter& painter_;
  const TileContent& content_;
  QRectF rect_;
  QPainterPath path_;
};

}  // namespace

const MapColors& MapColors::of(ColorScheme scheme) {
  return scheme == ColorScheme::dark ? kDark : kLight;
}

void paintMap(QPainter& painter, const MapViewport& viewport, MapTiles& tiles,
              const std::vector<VisibleTile>& visible, const MapColors& colors) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(QRectF(0, 0, viewport.size().width, viewport.size().height), colors.water);
  const double ratio = painter.device()->devicePixelRatioF();
  std::vector<TilePainter> painters;
  for (const VisibleTile& tile : visible)
    painters.emplace_back(painter, tiles.content(tile.tile), onPixels(tile, ratio));
  for (TilePainter& tile : painters) {
    tile.fill(MapLayer::land, colors.land);
    tile.fill(MapLayer::lake, colors.water);
    tile.fill(MapLayer::islandInLake, colors.land);
  }
  // A border may reach over the edge of its tile.
  for (TilePainter& tile : painters) {
    if (viewport.pixelsPerDegree() >= kAreaBordersFrom)
      tile.stroke(MapLayer::areaBorder, colors.areaBorder);
    tile.stroke(MapLayer::countryBorder, colors.countryBorder);
  }
  painter.restore();
}

}  // namespace Hilalor::Screens
