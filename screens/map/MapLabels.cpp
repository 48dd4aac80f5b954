#include "screens/map/MapLabels.hpp"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

#include "ui/TextStyle.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr int kTypeSize = 11;
constexpr double kDotRadius = 2;
constexpr double kDotToName = 4;
constexpr QSizeF kLeastGap{8, 2};  // Between names.
// Names that begin beyond the edges count too: what is seen does not change as they come in.
constexpr double kMargin = 160;

// On a map of the world only the first ranks are named; every doubling of its size adds as many.
constexpr double kRankAtOnePixelPerDegree = 0.5;
constexpr double kRanksPerDoubling = 1.4;
constexpr double kRanksAlike = 1;

double lastRank(const MapViewport& viewport) {
  return kRankAtOnePixelPerDegree + kRanksPerDoubling * std::log2(viewport.pixelsPerDegree());
}

/// Where a name of that size may stand, the best first: beside its dot, above or below it.
std::array<QRectF, 4> roomsFor(QPointF dot, QSizeF size) {
  const double middle = std::round(dot.x() - size.width() / 2);
  const double top = std::round(dot.y() - size.height() / 2);
  return {QRectF(QPointF(dot.x() + kDotToName, top), size),
          QRectF(QPointF(dot.x() - kDotToName - size.width(), top), size),
          QRectF(QPointF(middle, dot.y() - kDotRadius - size.height()), size),
          QRectF(QPointF(middle, dot.y() + kDotRadius), size)};
}

/// What others have to leave free.
QRectF withGap(const QRectF& name, QPointF dot) {
  const QRectF mark(dot - QPointF(kDotRadius, kDotRadius), QSizeF(2 * kDotRadius, 2 * kDotRadius));
  const double aside = kLeastGap.width() / 2;
  const double above = kLeastGap.height() / 2;
  return name.united(mark).adjusted(-aside, -above, aside, above);
}

/// A name that may be written.
struct Candidate {
  MapLabel* label;
  QPointF dot;
};

/// The most important first.
std::vector<Candidate> candidates(const MapViewport& viewport, MapTiles& tiles,
                                  const std::vector<VisibleTile>& visible) {
  const QRectF near = QRectF(0, 0, viewport.size().width, viewport.size().height)
                          .adjusted(-kMargin, -kMargin, kMargin, kMargin);
  const double last = lastRank(viewport);
  std::vector<Candidate> found;
  for (const VisibleTile& tile : visible) {
    for (MapLabel& label : tiles.content(tile.tile).labels) {
      if (label.rank > last) break;
      const Point point = viewport.pointOf(label.place);
      // On whole pixels letters look alike wherever they are.
      const QPointF dot(std::round(point.x), std::round(point.y));
      if (near.contains(dot)) found.push_back({&label, dot});
    }
  }
  std::ranges::stable_sort(found, {}, [](const Candidate& one) { return one.label->rank; });
  return found;
}

/// Finds room for one name after the other.
class Placement {
 public:
  Placement(std::vector<Candidate> names, std::vector<QRectF> taken)
      : names_(std::move(names)), taken_(std::move(taken)) {}

  [[nodiscard]] std::vector<PlacedLabel> placed(const QFontMetrics& metrics) {
    std::vector<PlacedLabel> placed;
    for (const auto& [label, dot] : names_) {
      if (label->width < 0) label->width = metrics.horizontalAdvance(label->name.toString());
      const auto rect = freeRoom(*label, dot, QSizeF(label->width, metrics.height()));
      if (!rect) continue;
      taken_.push_back(withGap(*rect, dot));
      placed.push_back({label, dot, *rect});
    }
    return placed;
  }

 private:
  [[nodiscard]] std::optional<QRectF> freeRoom(const MapLabel& label, QPointF dot,
                                               QSizeF size) const {
    std::optional<QRectF> makeshift;
    for (const QRectF& rect : roomsFor(dot, size)) {
      const QRectF room = withGap(rect, dot);
      if (std::ranges::any_of(taken_, [&](const QRectF& other) { return other.intersects(room); }))
        continue;
      if (!hidesOthers(room, label)) return rect;
      if (!makeshift) makeshift = rect;
    }
    return makeshift;
  }

  /// Whether a place that matters as much would lose its name.
  [[nodiscard]] bool hidesOthers(const QRectF& room, const MapLabel& label) const {
    for (const auto& [other, dot] : names_) {
      if (other->rank > label.rank + kRanksAlike) return false;
      if (other != &label && room.intersects(withGap({}, dot))) return true;
    }
    return false;
  }

  std::vector<Candidate> names_;
  std::vector<QRectF> taken_;
};

}  // namespace

MapLabels::MapLabels() : sheet_(systemFont(kTypeSize, QFont::Medium)) {}

std::vector<PlacedLabel> MapLabels::place(const MapViewport& viewport, MapTiles& tiles,
                                          const std::vector<VisibleTile>& visible,
                                          std::vector<QRectF> taken) const {
  return Placement(candidates(viewport, tiles, visible), std::move(taken))
      .placed(QFontMetrics(sheet_.font()));
}

void MapLabels::paint(QPainter& painter, const MapViewport& viewport,
                      const std::vector<PlacedLabel>& labels, const MapColors& colors) {
  const QRectF seen(0, 0, viewport.size().width, viewport.size().height);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const auto& [label, dot, rect] : labels) {
    if (!withGap(rect, dot).intersects(seen)) continue;
    sheet_.paint(painter, rect.topLeft(), label->name.toString(), colors);
    painter.setPen(QPen(colors.placeHalo, 1));
    painter.setBrush(colors.place);
    painter.drawEllipse(dot, kDotRadius, kDotRadius);
  }
}

}  // namespace Hilalor::Screens
