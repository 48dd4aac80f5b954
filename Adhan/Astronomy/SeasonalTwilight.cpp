#include "Adhan/Astronomy/SeasonalTwilight.hpp"

#include <cmath>

#include "Adhan/Astronomy/Astronomical.hpp"

namespace Adhan {
namespace {

// Minutes at the solstice of winter (a), between (b, c) and at that of summer (d): `atEquator`, and
// how much more at 55 degrees.
struct Curve {
  double atEquator = 0;
  double a = 0;
  double b = 0;
  double c = 0;
  double d = 0;
};

constexpr Curve kMorning{75, 28.65, 19.44, 32.74, 48.10};

constexpr Curve eveningCurve(Shafaq shafaq) {
  switch (shafaq) {
    case Shafaq::general:
      break;
    case Shafaq::ahmer:
      return {62, 17.40, -7.160, 5.120, 19.44};
    case Shafaq::abyad:
      return {75, 25.60, 7.160, 36.84, 81.84};
  }
  return {75, 25.60, 2.050, -9.210, 6.140};
}

// The year in six stretches, from one winter solstice to the next.
double minutes(const Curve& curve, const Season& season) {
  const auto at55 = [&](double more) {
    return curve.atEquator + more / 55 * std::abs(season.latitude);
  };
  const double a = at55(curve.a);
  const double b = at55(curve.b);
  const double c = at55(curve.c);
  const double d = at55(curve.d);
  const int day = Astronomical::daysSinceSolstice(season.dayOfYear, season.year, season.latitude);
  if (day < 91) return a + (b - a) / 91 * day;
  if (day < 137) return b + (c - b) / 46 * (day - 91);
  if (day < 183) return c + (d - c) / 46 * (day - 137);
  if (day < 229) return d + (c - d) / 46 * (day - 183);
  if (day < 275) return c + (b - c) / 46 * (day - 229);
  return b + (a - b) / 91 * (day - 275);
}

}  // namespace

Seconds seasonalMorningTwilight(const Season& season) {
  return Seconds(std::round(minutes(kMorning, season) * -60));
}

Seconds seasonalEveningTwilight(const Season& season, Shafaq shafaq) {
  return Seconds(std::round(minutes(eveningCurve(shafaq), season) * 60));
}

}  // namespace Adhan
