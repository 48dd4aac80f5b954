#include <string>

#include "rules/prayer/PrayerTimesCalculator.hpp"
#include "tests/fakes/FakePlatform.hpp"
#include "tests/golden/Inputs.hpp"
#include "tests/golden/Kinds.hpp"

namespace Golden {

void checkSchedule(const Json& row, Checks& checks) {
  using namespace Hilalor;
  FakePlatform desktop;
  chooseMethod(row, desktop.settings());
  const auto place = coordinates(row);
  const auto rows = PrayerTimesCalculator::calculate(
      {row.at("instant").get<double>()}, place.latitude, place.longitude,
      TimeZone::named(row.at("timeZone").get<std::string>()).value(),
      row.at("showSunnah").get<bool>(), desktop.settings());
  const auto& expected = row.at("rows");
  checks.equal("rows", expected.size(), rows.size());
  for (std::size_t i = 0; i < rows.size() && i < expected.size(); ++i) {
    const std::string name = "row " + std::to_string(i) + " ";
    checks.equal(name + "name", expected[i].at("name"), rows[i].name);
    checks.equal(name + "time", expected[i].at("time"), instant(rows[i].time));
    checks.equal(name + "isSunrise", expected[i].at("isSunrise"), rows[i].isSunrise);
    checks.equal(name + "isSunnah", expected[i].at("isSunnah"), rows[i].isSunnah);
  }
}

}  // namespace Golden
