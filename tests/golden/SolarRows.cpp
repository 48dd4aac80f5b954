#include "Adhan/Astronomy/Astronomical.hpp"
#include "Adhan/Astronomy/SolarDay.hpp"
#include "Adhan/Astronomy/SolarTime.hpp"
#include "tests/golden/Inputs.hpp"
#include "tests/golden/Kinds.hpp"

namespace Golden {
namespace {

using namespace Adhan;
using namespace Adhan::Astronomical;

constexpr double kAngleTolerance = 1e-8;         // degrees
constexpr double kSiderealTimeTolerance = 1e-7;  // degrees
constexpr double kHoursTolerance = 1e-9;

Json clock(const std::optional<DateComponents>& fields) {
  return fields ? Json{*fields->hour, *fields->minute, *fields->second} : Json();
}

void checkElements(const Json& row, Checks& checks) {
  const auto angle = [&](const char* key, Angle actual, double tolerance = kAngleTolerance) {
    checks.nearOnCircle(key, row.at(key), number(actual.degrees), tolerance);
  };
  const double T = julianCentury(row.at("julianDay"));
  checks.near("T", row.at("T"), T, 1e-12);
  const Angle sun = meanSolarLongitude(T);
  const Angle moon = meanLunarLongitude(T);
  const Angle node = ascendingLunarNodeLongitude(T);
  const Angle obliquity = meanObliquityOfTheEcliptic(T);
  angle("meanSolarLongitude", sun);
  angle("meanLunarLongitude", moon);
  angle("ascendingNode", node);
  angle("meanAnomaly", meanSolarAnomaly(T));
  angle("equationOfCentre", solarEquationOfTheCenter(T, meanSolarAnomaly(T)));
  angle("apparentLongitude", apparentSolarLongitude(T, sun));
  angle("meanObliquity", obliquity);
  angle("apparentObliquity", apparentObliquityOfTheEcliptic(T, obliquity));
  angle("meanSiderealTime", meanSiderealTime(T), kSiderealTimeTolerance);
  angle("nutationLongitude", nutation(sun, moon, node).inLongitude);
  angle("nutationObliquity", nutation(sun, moon, node).inObliquity);
}

void checkPosition(const std::string& key, const Json& expected, const SolarCoordinates& actual,
                   Checks& checks) {
  checks.near(key + " declination", expected.at("declination"), number(actual.declination.degrees),
              kAngleTolerance);
  checks.nearOnCircle(key + " rightAscension", expected.at("rightAscension"),
                      number(actual.rightAscension.degrees), kAngleTolerance);
  checks.nearOnCircle(key + " apparentSiderealTime", expected.at("apparentSiderealTime"),
                      number(actual.apparentSiderealTime.degrees), kSiderealTimeTolerance);
}

void checkHours(const Json& row, const Passage& passage, Checks& checks) {
  const Angle horizon{-50.0 / 60};
  checks.nearOnCircle("approxTransit", row.at("approxTransit"), number(passage.approximateTransit),
                      kHoursTolerance / 24, 1);
  checks.near("transitHours", row.at("transitHours"), number(correctedTransit(passage)),
              kHoursTolerance);
  checks.near("sunriseHours", row.at("sunriseHours"),
              number(correctedHourAngle(passage, horizon, false)), kHoursTolerance);
  checks.near("sunsetHours", row.at("sunsetHours"),
              number(correctedHourAngle(passage, horizon, true)), kHoursTolerance);
}

void checkDay(const Json& row, const Passage& passage, const SolarTime& day, Checks& checks) {
  checks.equal("transit", row.at("transit"), clock(day.transit));
  checks.equal("sunrise", row.at("sunrise"), clock(day.sunrise));
  checks.equal("sunset", row.at("sunset"), clock(day.sunset));
  for (const Json& entry : row.value("angles", Json::array())) {
    const Angle altitude{entry.at("angle").get<double>()};
    const bool after = entry.at("afterTransit");
    const std::string what = "angle " + entry.at("angle").dump();
    checks.near(what, entry.at("hours"), number(correctedHourAngle(passage, altitude, after)),
                kHoursTolerance);
    checks.equal(what, entry.at("hms"), clock(day.timeForSolarAngle(altitude, after)));
  }
  for (const Json& entry : row.value("afternoon", Json::array())) {
    const Angle altitude{entry.at("angle").get<double>()};
    const std::string what = "shadow " + entry.at("shadow").dump();
    checks.near(what, entry.at("hours"), number(correctedHourAngle(passage, altitude, true)),
                kHoursTolerance);
    checks.equal(what, entry.at("hms"), clock(day.afternoon(entry.at("shadow"))));
  }
}

}  // namespace

void checkSolar(const Json& row, Checks& checks) {
  const double day = julianDay(date(row));
  checks.equal("julianDay", row.at("julianDay"), day);
  checkElements(row, checks);
  const SolarCoordinates previous(day - 1);
  const SolarCoordinates solar(day);
  const SolarCoordinates next(day + 1);
  checkPosition("prevSolar", row.at("prevSolar"), previous, checks);
  checkPosition("solar", row.at("solar"), solar, checks);
  checkPosition("nextSolar", row.at("nextSolar"), next, checks);
  const Passage passage(coordinates(row), SolarDay(previous, solar, next));
  checkHours(row, passage, checks);
  const auto solarTime = SolarTime::make(date(row), coordinates(row));
  checks.equal("result", row.at("result"), solarTime.has_value());
  if (solarTime) checkDay(row, passage, *solarTime, checks);
}

}  // namespace Golden
