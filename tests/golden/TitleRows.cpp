#include <string>

#include "app/MenuBarTitle.hpp"
#include "tests/fakes/FakePlatform.hpp"
#include "tests/fakes/SystemTimeZone.hpp"
#include "tests/golden/Inputs.hpp"
#include "tests/golden/Kinds.hpp"

namespace Golden {

void checkTitle(const Json& row, Checks& checks) {
  using namespace Hilalor;
  const SystemTimeZone zone(row.at("systemTimeZone").get<std::string>());
  const FakePlatform desktop;
  chooseMethod(row);
  auto& settings = AppSettings::shared();
  const auto place = coordinates(row);
  settings.locationMode = LocationMode::manual;
  settings.manualLatitude = place.latitude;
  settings.manualLongitude = place.longitude;
  settings.manualTimeZoneId = row.at("timeZone").get<std::string>();
  checks.equal("title", row.at("title"), nextPrayerTitle(settings, {row.at("now").get<double>()}));
}

}  // namespace Golden
