#include "screens/map/MapClickView.hpp"

#include <QStringList>
#include <utility>

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr double kSpanAroundPlace = 5;
constexpr MapRegion kRegionWithoutPlace{
    .centre = {.latitude = 24, .longitude = 45}, .latitudeSpan = 90, .longitudeSpan = 120};
// A place that was looked for is shown with its surroundings.
constexpr double kSpanAroundFound = 2;

constexpr std::size_t kMatches = 7;

constexpr int kMargin = 8;
constexpr int kMarginBelow = 24;  // Above the line that says whom the map is owed to.
constexpr int kZoomButtonSide = 26;
constexpr int kZoomButtonSpacing = 4;

MapRegion around(LocationCoordinate centre, double span) {
  return {.centre = centre, .latitudeSpan = span, .longitudeSpan = span};
}

}  // namespace

/// Receives what was chosen on the map and hands it on.
class MapClickView::Coordinator : public std::enable_shared_from_this<Coordinator> {
 public:
  explicit Coordinator(MapClickView& view) : parent(view) {}

  MapClickView& parent;  // Whose end is the coordinator's too.

  void tapped(QPointF place) { tapped(parent.map_->coordinateAt(place)); }

  void tapped(LocationCoordinate coordinate) {
    parent.context_.loop.post([weak = weak_from_this(), coordinate] {
      const auto self = weak.lock();
      if (!self) return;
      self->parent.pin_.assign(coordinate);
      self->parent.onTap_(coordinate);
      self->parent.redraw();
    });
  }
};

MapClickView::MapClickView(const MapContext& context, Pin pin,
                           std::optional<LocationCoordinate> initialCoordinate,
                           std::function<void(LocationCoordinate)> onTap)
    : context_(context),
      pin_(std::move(pin)),
      onTap_(std::move(onTap)),
      coordinator_(std::make_shared<Coordinator>(*this)) {
  setBody(map(initialCoordinate));
  addSearch();
  addZoomButtons();
  setFocusProxy(map_);
  redraw();
}

MapClickView::~MapClickView() = default;

QWidget* MapClickView::map(std::optional<LocationCoordinate> initialCoordinate) {
  map_ = new MapView(context_.atlas.open());
  // What was stored may be anything.
  map_->setRegion(initialCoordinate && isOnGlobe(*initialCoordinate)
                      ? around(*initialCoordinate, kSpanAroundPlace)
                      : kRegionWithoutPlace);
  map_->onClick = [this](QPointF place) { coordinator_->tapped(place); };
  map_->onType = [this](const QString& text) { search_->open(text); };
  atRedraw([this] { updatePin(); });
  return map_;
}

void MapClickView::updatePin() {
  std::optional<MapAnnotation> annotation;
  const auto pin = pin_.value();
  if (pin && isOnGlobe(*pin)) annotation = {*pin, QStringLiteral("Prayer Location")};
  map_->setAnnotation(std::move(annotation));
}

void MapClickView::addSearch() {
  search_ = new SearchField(QStringLiteral("Find a place"),
                            {.find = [this](const QString& text) { return find(text); },
                             .onChoose = [this](std::size_t index) { goTo(found_[index]); },
                             .onClose = [this] { map_->setFocus(); }});
  search_->setParent(map_);
}

void MapClickView::addZoomButtons() {
  const auto button = [this](Icon icon, const QString& help, MapView::Zoom direction) {
    auto* zoom = new Button(
        {.icon = icon}, [this, direction] { map_->zoom(direction); }, ButtonLook::bordered);
    return framed(helped(help, zoom), kZoomButtonSide, kZoomButtonSide);
  };
  zoomButtons_ = column({.spacing = kZoomButtonSpacing},
                        {button(Icon::plus, QStringLiteral("Zoom in"), MapView::Zoom::in),
                         button(Icon::minus, QStringLiteral("Zoom out"), MapView::Zoom::out)});
  zoomButtons_->setParent(map_);
  zoomButtons_->adjustSize();
}

std::vector<Suggestion> MapClickView::find(const QString& text) {
  found_ = map_->map().search(text.toStdString(), kMatches);
  std::vector<Suggestion> suggestions;
  for (const FoundPlace& place : found_) {
    QStringList detail;
    for (const std::string& part : {place.area, place.country})
      if (!part.empty()) detail.append(QString::fromStdString(part));
    suggestions.push_back({QString::fromStdString(place.name), detail.join(QStringLiteral(", "))});
  }
  return suggestions;
}

void MapClickView::goTo(const FoundPlace& place) {
  map_->setRegion(around(place.coordinate, kSpanAroundFound));
  coordinator_->tapped(place.coordinate);
}

void MapClickView::resizeEvent(QResizeEvent* event) {
  View::resizeEvent(event);
  search_->move(width() - kMargin - search_->width(), kMargin);
  zoomButtons_->move(width() - kMargin - zoomButtons_->width(),
                     height() - kMarginBelow - zoomButtons_->height());
}

}  // namespace Hilalor::Screens
