#include "screens/settings/LocationSettings.hpp"

#include <QEvent>
#include <utility>

#include "screens/map/MapPickerView.hpp"
#include "ui/Containers.hpp"
#include "ui/Symbol.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr int kSpacing = 8;
constexpr int kSymbolSpacing = 4;
constexpr int kSymbolSize = 10;
constexpr TextStyle kStatusStyle{.size = 11, .color = &Colors::secondary};

QWidget* placeLine(Icon icon, Ink color, Text* place) {
  return row({.spacing = kSymbolSpacing}, {new Symbol(icon, kSymbolSize, color), place});
}

}  // namespace

LocationSettings::LocationSettings(const SettingsContext& context) : SettingsPart(context) {
  observe(locationManager_.willChange);
  setBody(column(
      {.spacing = kSpacing, .alignment = Qt::AlignLeft},
      {radioButton("Use system location", settings_.locationMode, LocationMode::automatic),
       onlyAt(Automatic::denied, deniedWarning()), onlyAt(Automatic::detecting, detectingLine()),
       onlyAt(Automatic::detected, detectedLine()), onlyAt(Automatic::notAsked, permissionButton()),
       radioButton("Set Manually", settings_.locationMode, LocationMode::manual),
       onlyWhile([this] { return settings_.locationMode == LocationMode::manual; },
                 manualPlace())}));
  redraw();
}

bool LocationSettings::event(QEvent* event) {
  if (event->type() == QEvent::Show || event->type() == QEvent::WindowActivate) lookAgain();
  return SettingsPart::event(event);
}

void LocationSettings::lookAgain() {
  // Who chose a place by hand is not asked for the machine's.
  if (settings_.locationMode != LocationMode::automatic) return;
  // Who has been in the desktop's settings wants to be asked, however often they refused.
  if (std::exchange(isPaneOpened_, false)) locationManager_.manager.requestWhenInUseAuthorization();
  locationManager_.lookAgain();
}

QWidget* LocationSettings::deniedWarning() {
  return warning({.title = "Location access denied.",
                  .pane = SettingsPane::locationPrivacy,
                  .symbolSize = 11,
                  .titleSize = 11,
                  .symbolSpacing = 6,
                  .lineSpacing = 3,
                  .onOpen = [this] { isPaneOpened_ = true; }});
}

QWidget* LocationSettings::detectingLine() {
  return new Text(kStatusStyle, QStringLiteral("Detecting location…"));
}

QWidget* LocationSettings::detectedLine() {
  return placeLine(Icon::locationArrow, &Colors::accent, liveText(kStatusStyle, [this] {
                     const std::string& name = locationManager_.locationName.value();
                     return name.empty() ? QStringLiteral("Location detected")
                                         : QString::fromStdString(name);
                   }));
}

QWidget* LocationSettings::permissionButton() {
  return linkButton(QStringLiteral("Allow Location Access"),
                    [this] { locationManager_.manager.requestWhenInUseAuthorization(); });
}

QWidget* LocationSettings::manualPlace() {
  return column({.spacing = kSpacing, .alignment = Qt::AlignLeft},
                {onlyWhile([this] { return hasManualName(); }, manualPlaceLine()), mapButton()});
}

QWidget* LocationSettings::manualPlaceLine() {
  return placeLine(Icon::mapPin, &Colors::primary, liveText(kStatusStyle, [this] {
                     return QString::fromStdString(settings_.manualLocationName);
                   }));
}

QWidget* LocationSettings::mapButton() {
  auto* button = linkButton({}, [this] { showMap(); });
  atRedraw([this, button] {
    button->setLabel({.text = hasManualName() ? QStringLiteral("Change Location")
                                              : QStringLiteral("Pick Location on Map"),
                      .style = kLinkStyle});
  });
  return button;
}

QWidget* LocationSettings::onlyAt(Automatic status, QWidget* part) {
  return onlyWhile(
      [this, status] {
        return settings_.locationMode == LocationMode::automatic && automaticStatus() == status;
      },
      part);
}

LocationSettings::Automatic LocationSettings::automaticStatus() const {
  switch (locationManager_.authStatus.value()) {
    case AuthorizationStatus::restricted:
    case AuthorizationStatus::denied:
      return Automatic::denied;
    case AuthorizationStatus::authorizedAlways:
      return locationManager_.coordinate.value() ? Automatic::detected : Automatic::detecting;
    case AuthorizationStatus::notDetermined:
    case AuthorizationStatus::authorizedWhenInUse:
      break;
  }
  return Automatic::notAsked;
}

bool LocationSettings::hasManualName() const {
  return !settings_.manualLocationName.value().empty();
}

void LocationSettings::showMap() {
  auto* map =
      new MapPickerView(context_.map, settings_.manualCoordinate(),
                        [this](LocationCoordinate coordinate, const std::string& name,
                               const TimeZone& timeZone) { take(coordinate, name, timeZone); });
  // The sheet deletes itself when it is closed.
  auto* sheet = new Sheet(*window(), map);
  sheet->open();
}

void LocationSettings::take(LocationCoordinate coordinate, const std::string& name,
                            const TimeZone& timeZone) {
  settings_.manualLatitude = coordinate.latitude;
  settings_.manualLongitude = coordinate.longitude;
  settings_.manualLocationName = name;
  settings_.manualTimeZoneId = timeZone.identifier();
}

}  // namespace Hilalor::Screens
