#include "Adhan/SunnahTimes.hpp"
#include "tests/golden/Inputs.hpp"
#include "tests/golden/Kinds.hpp"

namespace Golden {

void checkSunnah(const Json& row, Checks& checks) {
  const auto today = Adhan::PrayerTimes::make(coordinates(row), date(row), parameters(row));
  if (!today) return checks.fail("the day itself has no times");
  checks.equal("maghrib", row.at("maghrib"), instant(today->maghrib));
  const auto sunnah = Adhan::SunnahTimes::make(*today);
  checks.equal("result", row.at("result"), sunnah.has_value());
  if (!sunnah) return;
  checks.equal("middleOfTheNight", row.at("middleOfTheNight"), instant(sunnah->middleOfTheNight));
  checks.equal("lastThirdOfTheNight", row.at("lastThirdOfTheNight"),
               instant(sunnah->lastThirdOfTheNight));
}

}  // namespace Golden
