#include "screens/map/LabelPlacement.hpp"

#include <QFontMetrics>
#include <QLineF>
#include <algorithm>
#include <cmath>
#include <utility>

namespace Hilalor::Screens {
namespace {

constexpr double kDotRadius = 2;
constexpr double kDotToName = 4;
constexpr QSizeF kLeastGap{8, 2};  // Between names.
// Names that begin beyond the edges count too: what is seen does not change as they come in.
constexpr double kMargin = 160;

// On a map of the world only the first ranks are named; every doubling of its size adds as many.
constexpr double kRankAtOnePixelPerDegree = 0.5;
constexpr double kRanksPerDoubling = 1.4;
constexpr double kRanksAlike = 1;

// As near as that to its tip, a place is what the pin stands on.
constexpr double kUnderPin = 12;
constexpr double kPinToName = 4;

// A country's name may reach over its borders by so much, and is of no use in one that is so much
// larger than the map.
constexpr double kNamePerArea = 1.75;
constexpr double kAreaPerMap = 2.5;
// So far up or down it is still in the country.
constexpr double kShiftPerArea = 0.25;

double lastRank(const MapViewport& viewport) {
  return kRankAtOnePixelPerDegree + kRanksPerDoubling * std::log2(viewport.pixelsPerDegree());
}

QRectF markOf(QPointF dot) {
  return {dot - QPointF(kDotRadius, kDotRadius), QSizeF(2 * kDotRadius, 2 * kDotRadius)};
}

QRectF withGap(const QRectF& rect) {
  const double aside = kLeastGap.width() / 2;
  const double above = kLeastGap.height() / 2;
  return rect.adjusted(-aside, -above, aside, above);
}

}  // namespace

LabelPlacement::LabelPlacement(const MapViewport& viewport, const LabelSheet& sheet,
                               std::vector<QRectF> taken)
    : viewport_(viewport),
      sheet_(sheet),
      seen_(0, 0, viewport.size().width, viewport.size().height),
      taken_(std::move(taken)) {}

std::vector<PlacedLabel> LabelPlacement::placed(MapTiles& tiles,
                                                const std::vector<VisibleTile>& visible,
                                                const std::optional<PinRooms>& pin) {
  places_ = places(tiles, visible);
  if (pin) {
    taken_.push_back(pin->drop);
    taken_.push_back(pin->title);
    placePinned(*pin);
  }
  for (MapLabel& area : tiles.areas())
    if (fitsItsArea(area)) placeArea(area);
  for (const Candidate& candidate : places_) {
    const QPointF dot = candidate.dot;
    const QSizeF size = sizeOf(*candidate.label);
    const double middle = std::round(dot.x() - size.width() / 2);
    const double top = std::round(dot.y() - size.height() / 2);
    const auto room = [&](double x, double y) {
      const QRectF name(QPointF(x, y), size);
      return Room{name, withGap(name.united(markOf(dot)))};
    };
    // Beside its dot, above or below it.
    place(candidate,
          {room(dot.x() + kDotToName, top), room(dot.x() - kDotToName - size.width(), top),
           room(middle, dot.y() - kDotRadius - size.height()), room(middle, dot.y() + kDotRadius)});
  }
  return std::move(placed_);
}

std::vector<LabelPlacement::Candidate> LabelPlacement::places(
    MapTiles& tiles, const std::vector<VisibleTile>& visible) const {
  const QRectF near = seen_.adjusted(-kMargin, -kMargin, kMargin, kMargin);
  const double last = lastRank(viewport_);
  std::vector<Candidate> found;
  for (const VisibleTile& tile : visible) {
    for (MapLabel& label : tiles.content(tile.tile).labels) {
      if (label.rank > last) break;
      const QPointF dot = pointOf(label.place);
      if (near.contains(dot)) found.push_back({&label, dot});
    }
  }
  std::ranges::stable_sort(found, {}, [](const Candidate& one) { return one.label->rank; });
  return found;
}

QPointF LabelPlacement::pointOf(WorldPoint place) const {
  const Point point = viewport_.pointOf(place);
  // On whole pixels letters look alike wherever they are.
  return {std::round(point.x), std::round(point.y)};
}

QSizeF LabelPlacement::sizeOf(MapLabel& label) const {
  const QFontMetrics metrics(sheet_.font(label.kind));
  if (label.width < 0) label.width = metrics.horizontalAdvance(label.name.toString());
  return QSizeF(label.width, metrics.height());
}

void LabelPlacement::placePinned(const PinRooms& pin) {
  const auto found = std::ranges::find_if(places_, [&](const Candidate& candidate) {
    return QLineF(candidate.dot, pin.tip).length() <= kUnderPin;
  });
  if (found == places_.end()) return;
  const QSizeF size = sizeOf(*found->label);
  const double middle = std::round(pin.tip.x() - size.width() / 2);
  const double top = std::round(pin.drop.center().y() - size.height() / 2);
  const auto room = [&](double x, double y) {
    const QRectF name(QPointF(x, y), size);
    return Room{name, withGap(name)};
  };
  const bool isPlaced = place(
      *found, {room(pin.drop.right() + kPinToName, top),
               room(pin.drop.left() - kPinToName - size.width(), top),
               room(middle, pin.title.bottom() + 1), room(middle, pin.drop.top() - size.height())});
  if (isPlaced) places_.erase(found);
}

bool LabelPlacement::fitsItsArea(MapLabel& area) const {
  const double room = area.degrees * viewport_.pixelsPerDegree();
  return sizeOf(area).width() <= kNamePerArea * room && room <= kAreaPerMap * seen_.width();
}

void LabelPlacement::placeArea(MapLabel& area) {
  const QPointF middle = pointOf(area.place);
  if (!seen_.adjusted(-kMargin, -kMargin, kMargin, kMargin).contains(middle)) return;
  const QSizeF size = sizeOf(area);
  std::vector<Room> rooms;
  // Another line may already be in another country.
  const double room = area.degrees * viewport_.pixelsPerDegree();
  const double farthest = size.height() <= kShiftPerArea * room ? 1 : 0;
  for (const double lines : {0.0, farthest, -farthest}) {
    const QPointF corner(std::round(middle.x() - size.width() / 2),
                         std::round(middle.y() + (lines - 0.5) * size.height()));
    const QRectF name(corner, size);
    rooms.push_back({name, withGap(name)});
  }
  place({&area, middle}, rooms);
}

bool LabelPlacement::place(const Candidate& candidate, const std::vector<Room>& rooms) {
  const Room* makeshift = nullptr;
  const Room* chosen = nullptr;
  for (const Room& room : rooms) {
    if (!isFree(room, candidate.dot)) continue;
    if (makeshift == nullptr) makeshift = &room;
    if (hidesOthers(room.occupied, *candidate.label)) continue;
    chosen = &room;
    break;
  }
  if (chosen == nullptr) chosen = makeshift;
  if (chosen == nullptr) return false;
  taken_.push_back(chosen->occupied);
  placed_.push_back({candidate.label, candidate.dot, chosen->name});
  return true;
}

bool LabelPlacement::isFree(const Room& room, QPointF dot) const {
  // What lies beyond the edges is not seen, and may reach over them.
  if (seen_.contains(dot) && !seen_.contains(withGap(room.name))) return false;
  return std::ranges::none_of(taken_,
                              [&](const QRectF& other) { return other.intersects(room.occupied); });
}

bool LabelPlacement::hidesOthers(const QRectF& room, const MapLabel& label) const {
  // Whether a place that matters as much would lose its name.
  for (const auto& [other, dot] : places_) {
    if (other->rank > label.rank + kRanksAlike) return false;
    if (other != &label && room.intersects(withGap(markOf(dot)))) return true;
  }
  return false;
}

}  // namespace Hilalor::Screens
