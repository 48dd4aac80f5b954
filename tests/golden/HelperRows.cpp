#include <functional>
#include <map>
#include <sstream>

#include "Adhan/Astronomy/Astronomical.hpp"
#include "Adhan/Astronomy/SeasonalTwilight.hpp"
#include "Adhan/Extensions/DateUtilities.hpp"
#include "Adhan/PrayerTimes.hpp"
#include "tests/golden/Inputs.hpp"
#include "tests/golden/Kinds.hpp"

namespace Golden {
namespace {

using namespace Adhan;

constexpr double kTolerance = 1e-9;

using HelperCheck = void (*)(const Json& in, const Json& out, Checks& checks);

void checkJulianDay(const Json& in, const Json& out, Checks& checks) {
  checks.near("julianDay", out, Astronomical::julianDay(date(in)), kTolerance);
}

void checkDaysSinceSolstice(const Json& in, const Json& out, Checks& checks) {
  checks.equal(
      "days", out,
      Astronomical::daysSinceSolstice(in.at("dayOfYear"), in.at("year"), in.at("latitude")));
}

void checkNightPortions(const Json& in, const Json& out, Checks& checks) {
  CalculationParameters parameters(in.at("fajrAngle"), in.at("ishaAngle"));
  parameters.method = enumerator<CalculationMethod>(in.at("method"));
  const Json& rule = in.at("highLatitudeRule");
  if (!rule.is_null()) parameters.highLatitudeRule = enumerator<HighLatitudeRule>(rule);
  const auto portions = parameters.nightPortions({in.at("latitude"), 0});
  checks.near("fajr", out.at(0), portions.fajr, kTolerance);
  checks.near("isha", out.at(1), portions.isha, kTolerance);
}

void checkSettingHour(const Json& in, const Json& out, Checks& checks) {
  const DateComponents day{2025, 3, 10, std::nullopt, std::nullopt, std::nullopt};
  const auto fields = settingHour(day, in.at("value"));
  checks.equal("result", !out.is_null(), fields.has_value());
  if (!fields || out.is_null()) return;
  checks.equal("hour", out.at("hour"), *fields->hour);
  checks.equal("minute", out.at("minute"), *fields->minute);
  checks.equal("second", out.at("second"), *fields->second);
  checks.equal("instant", out.at("instantFor2025-03-10"), instant(gregorianUTC().date(*fields)));
}

void checkRoundedMinute(const Json& in, const Json& out, Checks& checks) {
  const Date date{in.at("instant").get<double>()};
  const auto rounding = enumerator<Rounding>(in.at("rounding"));
  checks.equal("instant", out, instant(roundedMinute(date, rounding)));
}

void checkUnwound(const Json& in, const Json& out, Checks& checks) {
  const Angle angle{in.at("degrees").get<double>()};
  checks.nearOnCircle("degrees", out, angle.unwound().degrees, kTolerance);
}

void checkQuadrantShifted(const Json& in, const Json& out, Checks& checks) {
  const Angle angle{in.at("degrees").get<double>()};
  checks.near("degrees", out, angle.quadrantShifted().degrees, kTolerance);
}

using Fit = Astronomical::Interpolation (*)(Angle previous, Angle value, Angle next);

void checkFit(Fit fit, const Json& in, const Json& out, Checks& checks) {
  const auto angle = [&](const char* key) { return Angle{in.at(key).get<double>()}; };
  const auto interpolation = fit(angle("previous"), angle("value"), angle("next"));
  checks.near("value", out, interpolation.at(in.at("factor")).degrees, kTolerance);
}

void checkInterpolate(const Json& in, const Json& out, Checks& checks) {
  checkFit(Astronomical::Interpolation::of, in, out, checks);
}

void checkInterpolateAngles(const Json& in, const Json& out, Checks& checks) {
  checkFit(Astronomical::Interpolation::ofTurning, in, out, checks);
}

Season season(const Json& in) {
  return {in.at("latitude"), in.at("dayOfYear"), in.at("year")};
}

void checkSeasonalMorning(const Json& in, const Json& out, Checks& checks) {
  checks.equal("seconds", out, seasonalMorningTwilight(season(in)).count());
}

void checkSeasonalEvening(const Json& in, const Json& out, Checks& checks) {
  const auto shafaq = enumerator<Shafaq>(in.at("shafaq"));
  checks.equal("seconds", out, seasonalEveningTwilight(season(in), shafaq).count());
}

Json name(const std::optional<Prayer>& prayer) {
  if (!prayer) return {};
  std::ostringstream text;
  text << *prayer;
  return text.str();
}

void checkCurrentNext(const Json& in, const Json& out, Checks& checks) {
  const auto time = [&](const char* prayer) {
    return Date{in.at("times").at(prayer).get<double>()};
  };
  const PrayerTimes times{time("fajr"),  time("sunrise"),  time("dhuhr"),
                          time("asr"),   time("maghrib"),  time("isha"),
                          Coordinates{}, DateComponents{}, params(CalculationMethod::other)};
  const Date at{in.at("instant").get<double>()};
  checks.equal("current", out.at("current"), name(times.currentPrayer(at)));
  checks.equal("next", out.at("next"), name(times.nextPrayer(at)));
}

const std::map<std::string, HelperCheck, std::less<>> kHelpers{
    {"julianDay", checkJulianDay},
    {"daysSinceSolstice", checkDaysSinceSolstice},
    {"nightPortions", checkNightPortions},
    {"settingHour", checkSettingHour},
    {"roundedMinute", checkRoundedMinute},
    {"unwound", checkUnwound},
    {"quadrantShifted", checkQuadrantShifted},
    {"interpolate", checkInterpolate},
    {"interpolateAngles", checkInterpolateAngles},
    {"seasonalMorningSeconds", checkSeasonalMorning},
    {"seasonalEveningSeconds", checkSeasonalEvening},
    {"currentNext", checkCurrentNext},
};

}  // namespace

void checkHelper(const Json& row, Checks& checks) {
  const auto helper = kHelpers.find(row.at("kind").get<std::string>());
  if (helper == kHelpers.end()) return checks.fail("a kind of helper that is not known");
  helper->second(row.at("in"), row.at("out"), checks);
}

}  // namespace Golden
