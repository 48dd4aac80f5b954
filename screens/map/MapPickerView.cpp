#include "screens/map/MapPickerView.hpp"

#include <QKeyEvent>
#include <QStringList>
#include <utility>

#include "screens/map/MapClickView.hpp"
#include "ui/Containers.hpp"
#include "ui/Symbol.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr QSize kSize{640, 500};
constexpr const char* kUnnamedPlace = "Custom Location";
constexpr Insets kBarPadding = Insets::all(12);

constexpr int kHeaderSpacing = 8;
constexpr TextStyle kHeaderStyle{.size = 13};

constexpr int kFooterSpacing = 12;
constexpr int kStatusSpacing = 6;
constexpr int kStatusTypeSize = 12;
constexpr TextStyle kStatusStyle{.size = kStatusTypeSize, .overflow = Overflow::ellipsis};
constexpr TextStyle kHintStyle{.size = kStatusTypeSize, .color = &Colors::secondary};
// A small indicator is 16 pixels wide; this one is scaled to seven tenths.
constexpr int kIndicatorSide = 11;

/// The parts of the place's name that are known, the finest first.
std::string nameOf(const Placemark& place) {
  std::string name;
  for (const auto& part : {place.locality, place.administrativeArea, place.country}) {
    if (!part || part->empty()) continue;
    if (!name.empty()) name += ", ";
    name += *part;
  }
  return name;
}

}  // namespace

MapPickerView::MapPickerView(const MapContext& context,
                             std::optional<LocationCoordinate> initialCoordinate,
                             OnConfirm onConfirm)
    : context_(context), onConfirm_(std::move(onConfirm)), pinCoordinate_(initialCoordinate) {
  setFixedSize(kSize);
  setWindowTitle(QStringLiteral("Choose Location"));
  setBody(column({}, {headerBar(), divider(), map(initialCoordinate), divider(), footerBar()}));
  redraw();
}

MapPickerView::~MapPickerView() = default;

QWidget* MapPickerView::headerBar() {
  return row(
      {.spacing = kHeaderSpacing, .padding = kBarPadding},
      {new Symbol(Icon::mapPin, kHeaderStyle.size, &Colors::accent),
       new Text(kHeaderStyle, QStringLiteral("Click anywhere on the map to set your location")),
       flexibleSpace()});
}

QWidget* MapPickerView::map(std::optional<LocationCoordinate> initialCoordinate) {
  auto* map = new MapClickView(
      context_,
      {.value = [this] { return pinCoordinate_; },
       .assign = [this](std::optional<LocationCoordinate> pin) { pinCoordinate_ = pin; }},
      initialCoordinate, [this](LocationCoordinate coordinate) { choose(coordinate); });
  map->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setFocusProxy(map);
  return map;
}

QWidget* MapPickerView::footerBar() {
  auto* cancel = new Button(
      {.text = QStringLiteral("Cancel")}, [this] { dismiss(); }, ButtonLook::bordered);
  auto* confirm = new Button(
      {.text = QStringLiteral("Confirm")}, [this] { this->confirm(); }, ButtonLook::prominent);
  atRedraw([this, confirm] { confirm->setEnabled(pinCoordinate_ && !isResolving_); });
  return row({.spacing = kFooterSpacing, .padding = kBarPadding},
             {status(), flexibleSpace(), cancel, confirm});
}

QWidget* MapPickerView::status() {
  auto* resolving = row({.spacing = kStatusSpacing},
                        {new ActivityIndicator(kIndicatorSide),
                         new Text(kHintStyle, QStringLiteral("Resolving location\u2026"))});
  auto* hint = new Text(kHintStyle, QStringLiteral("Click the map to select a location"));
  auto* place =
      row({.spacing = kStatusSpacing},
          {new Symbol(Icon::locationArrow, kStatusTypeSize, &Colors::accent),
           liveText(kStatusStyle, [this] { return QString::fromStdString(locationName_); })});
  return row({}, {onlyWhile([this] { return isResolving_; }, resolving),
                  onlyWhile([this] { return !isResolving_ && locationName_.empty(); }, hint),
                  onlyWhile([this] { return !isResolving_ && !locationName_.empty(); }, place)});
}

void MapPickerView::showEvent(QShowEvent* event) {
  View::showEvent(event);
  setFocus();
}

// Return again after a place was found confirms it. What was stored keeps its name and zone until a
// press on "Confirm" itself; a key held down from the search does not run on into it.
void MapPickerView::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const bool isFound = !isResolving_ && !locationName_.empty();
  if (isReturn && isFound && !event->isAutoRepeat()) return confirm();
  View::keyPressEvent(event);
}

void MapPickerView::choose(LocationCoordinate coordinate) {
  pinCoordinate_ = coordinate;
  resolveLocation(coordinate);
}

void MapPickerView::resolveLocation(LocationCoordinate coordinate) {
  isResolving_ = true;
  locationName_.clear();
  redraw();
  context_.geocoder.reverseGeocode(
      coordinate,
      lifetime_.whileAlive([this](const std::vector<Placemark>& placemarks) { take(placemarks); }));
}

void MapPickerView::take(const std::vector<Placemark>& placemarks) {
  isResolving_ = false;
  if (placemarks.empty()) {
    locationName_ = kUnnamedPlace;
    detectedTimeZone_ = TimeZone::current();
  } else {
    const Placemark& place = placemarks.front();
    locationName_ = nameOf(place);
    detectedTimeZone_ = place.timeZone.value_or(TimeZone::current());
  }
  redraw();
}

void MapPickerView::confirm() {
  if (pinCoordinate_) {
    onConfirm_(*pinCoordinate_, locationName_.empty() ? kUnnamedPlace : locationName_,
               detectedTimeZone_);
  }
  dismiss();
}

void MapPickerView::dismiss() {
  window()->close();
}

}  // namespace Hilalor::Screens
