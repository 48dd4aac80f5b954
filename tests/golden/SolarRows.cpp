#include "Adhan/Astronomy/Astronomical.hpp"
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

// The three positions and the approximate transit, from which all hours of a day follow.
struct Sky {
  Coordinates observer;
  SolarCoordinates previous;
  SolarCoordinates day;
  SolarCoordinates next;
  double transit;

  Sky(const Coordinates& place, double julianDay)
      : observer(place),
        previous(julianDay - 1),
        day(julianDay),
        next(julianDay + 1),
        transit(
            approximateTransit({place.longitude}, day.apparentSiderealTime, day.rightAscension)) {}

  [[nodiscard]] ThreeDays rightAscension() const {
    return {previous.rightAscension, day.rightAscension, next.rightAscension};
  }
  [[nodiscard]] double transitHours() const {
    return correctedTransit(transit, {observer.longitude}, day.apparentSiderealTime,
                            rightAscension());
  }
  [[nodiscard]] double hours(Angle altitude, bool afterTransit) const {
    return correctedHourAngle(transit, altitude, observer, afterTransit, day.apparentSiderealTime,
                              rightAscension(),
                              {previous.declination, day.declination, next.declination});
  }
};

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
  angle("nutationLongitude", nutationInLongitude(sun, moon, node));
  angle("nutationObliquity", nutationInObliquity(sun, moon, node));
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

void checkHours(const Json& row, const Sky& sky, Checks& checks) {
  const Angle horizon{-50.0 / 60};
  checks.nearOnCircle("approxTransit", row.at("approxTransit"), number(sky.transit),
                      kHoursTolerance / 24, 1);
  checks.near("transitHours", row.at("transitHours"), number(sky.transitHours()), kHoursTolerance);
  checks.near("sunriseHours", row.at("sunriseHours"), number(sky.hours(horizon, false)),
              kHoursTolerance);
  checks.near("sunsetHours", row.at("sunsetHours"), number(sky.hours(horizon, true)),
              kHoursTolerance);
}

void checkDay(const Json& row, const Sky& sky, const SolarTime& day, Checks& checks) {
  checks.equal("transit", row.at("transit"), clock(day.transit));
  checks.equal("sunrise", row.at("sunrise"), clock(day.sunrise));
  checks.equal("sunset", row.at("sunset"), clock(day.sunset));
  for (const Json& entry : row.value("angles", Json::array())) {
    const Angle altitude{entry.at("angle").get<double>()};
    const bool after = entry.at("afterTransit");
    const std::string what = "angle " + entry.at("angle").dump();
    checks.near(what, entry.at("hours"), number(sky.hours(altitude, after)), kHoursTolerance);
    checks.equal(what, entry.at("hms"), clock(day.timeForSolarAngle(altitude, after)));
  }
  for (const Json& entry : row.value("afternoon", Json::array())) {
    const Angle altitude{entry.at("angle").get<double>()};
    const std::string what = "shadow " + entry.at("shadow").dump();
    checks.near(what, entry.at("hours"), number(sky.hours(altitude, true)), kHoursTolerance);
    checks.equal(what, entry.at("hms"), clock(day.afternoon(entry.at("shadow"))));
  }
}

}  // namespace

void checkSolar(const Json& row, Checks& checks) {
  const double day = julianDay(date(row));
  checks.equal("julianDay", row.at("julianDay"), day);
  checkElements(row, checks);
  const Sky sky(coordinates(row), day);
  checkPosition("solar", row.at("solar"), sky.day, checks);
  checkPosition("prevSolar", row.at("prevSolar"), sky.previous, checks);
  checkPosition("nextSolar", row.at("nextSolar"), sky.next, checks);
  checkHours(row, sky, checks);
  const auto solarTime = SolarTime::make(date(row), coordinates(row));
  checks.equal("result", row.at("result"), solarTime.has_value());
  if (solarTime) checkDay(row, sky, *solarTime, checks);
}

}  // namespace Golden
