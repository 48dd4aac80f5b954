#include "rules/settings/AppSettings.hpp"

#include <algorithm>
#include <utility>

namespace Hilalor {
namespace {

EffectiveLocation fallbackLocation() {
  return {
      {24.6877, 46.7219}, "Riyadh", TimeZone::named("Asia/Riyadh").value_or(TimeZone::current())};
}

bool isSound(const std::filesystem::path& file) {
  auto extension = file.extension().string();
  std::transform(extension.begin(), extension.end(), extension.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return extension == ".aiff";
}

}  // namespace

AppSettings::AppSettings(DefaultsStore& store, const LocationManager& locationManager,
                         std::vector<std::filesystem::path> soundFolders)
    : store_(store), locationManager_(locationManager), soundFolders_(std::move(soundFolders)) {}

EffectiveLocation AppSettings::effectiveLocation() const {
  return locationMode == LocationMode::manual ? manualLocation() : automaticLocation();
}

std::optional<LocationCoordinate> AppSettings::manualCoordinate() const {
  const LocationCoordinate stored{manualLatitude, manualLongitude};
  // The Gulf of Guinea, where nobody lives: the place was never set.
  return stored != LocationCoordinate{} ? std::optional(stored) : std::nullopt;
}

std::optional<LocationCoordinate> AppSettings::knownCoordinate() const {
  return locationMode == LocationMode::manual ? manualCoordinate()
                                              : locationManager_.coordinate.value();
}

Calendar AppSettings::hijriCalendar() const {
  return Calendar(CalendarIdentifier::islamicUmmAlQura)
      .withHijriAhead(static_cast<int>(hijriDays.value()));
}

Calendar AppSettings::hijriCalendar(const TimeZone& zone) const {
  return Calendar(CalendarIdentifier::islamicUmmAlQura, zone)
      .withHijriAhead(static_cast<int>(hijriDays.value()));
}

void AppSettings::choosePlace(LocationCoordinate coordinate, const std::string& name,
                              const TimeZone& zone) {
  manualLatitude = coordinate.latitude;
  manualLongitude = coordinate.longitude;
  manualLocationName = name;
  manualTimeZoneId = zone.identifier();
  locationMode = LocationMode::manual;
}

bool AppSettings::isPlaceKnown() const {
  return manualCoordinate().has_value() || locationManager_.coordinate.value().has_value();
}

EffectiveLocation AppSettings::manualLocation() const {
  const auto coordinate = manualCoordinate();
  if (!coordinate) return fallbackLocation();
  const auto zone = TimeZone::named(manualTimeZoneId.value());
  const auto& name = manualLocationName.value();
  return {*coordinate, name.empty() ? "Custom Location" : name, zone ? *zone : TimeZone::current()};
}

EffectiveLocation AppSettings::automaticLocation() const {
  const auto& coordinate = locationManager_.coordinate.value();
  if (!coordinate) return fallbackLocation();
  const auto& name = locationManager_.locationName.value();
  // The fix may be weeks old, and the zone's rules have changed since.
  const auto& zone = locationManager_.detectedTimeZone.value();
  return {*coordinate, name.empty() ? "My Location" : name,
          TimeZone::named(zone.identifier()).value_or(zone)};
}

std::filesystem::path AppSettings::ownSoundFolder() const {
  return soundFolders_.empty() ? std::filesystem::path() : soundFolders_.front();
}

std::vector<std::string> AppSettings::systemSoundNames() const {
  return soundNames(soundFolders_);
}

std::vector<std::string> soundNames(const std::vector<std::filesystem::path>& folders) {
  std::vector<std::string> names;
  for (const auto& folder : folders) {
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
      if (isSound(entry->path())) names.push_back(entry->path().stem().string());
    }
  }
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

}  // namespace Hilalor
