#include "Adhan/ExactTimes.hpp"
#include "Adhan/PrayerTimes.hpp"
#include "tests/golden/Inputs.hpp"
#include "tests/golden/Kinds.hpp"

namespace Golden {
namespace {

constexpr double kExactTolerance = 1e-3;  // seconds

}  // namespace

void checkTimes(const Json& row, Checks& checks) {
  const auto exact = Adhan::ExactTimes::make(coordinates(row), date(row), parameters(row));
  const auto times = Adhan::PrayerTimes::make(coordinates(row), date(row), parameters(row));
  checks.equal("result", row.at("result"), times.has_value());
  if (!exact || !times || !row.at("result")) return;

  const Json& raw = row.at("raw");
  checks.near("raw fajr", raw.at("fajr"), instant(exact->fajr), kExactTolerance);
  checks.near("raw sunrise", raw.at("sunrise"), instant(exact->sunrise), kExactTolerance);
  checks.near("raw dhuhr", raw.at("dhuhr"), instant(exact->dhuhr), kExactTolerance);
  checks.near("raw asr", raw.at("asr"), instant(exact->asr), kExactTolerance);
  checks.near("raw maghrib", raw.at("maghrib"), instant(exact->maghrib), kExactTolerance);
  checks.near("raw isha", raw.at("isha"), instant(exact->isha), kExactTolerance);

  const Json& final = row.at("final");
  checks.equal("fajr", final.at("fajr"), instant(times->fajr));
  checks.equal("sunrise", final.at("sunrise"), instant(times->sunrise));
  checks.equal("dhuhr", final.at("dhuhr"), instant(times->dhuhr));
  checks.equal("asr", final.at("asr"), instant(times->asr));
  checks.equal("maghrib", final.at("maghrib"), instant(times->maghrib));
  checks.equal("isha", final.at("isha"), instant(times->isha));
}

}  // namespace Golden
