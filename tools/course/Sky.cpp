#include "tools/course/Sky.hpp"

#include <cmath>
#include <numbers>

namespace Sky {
namespace {

constexpr double kRadian = std::numbers::pi / 180;

struct Sun {
  double declination;
  double rightAscension;
  double siderealTime;
};

Sun sunAt(double instant) {
  const double day = instant / 86400 + 2440587.5 - 2451545.0;
  const double anomaly = (357.529 + 0.98560028 * day) * kRadian;
  const double meanLongitude = 280.459 + 0.98564736 * day;
  const double longitude =
      (meanLongitude + 1.915 * std::sin(anomaly) + 0.020 * std::sin(2 * anomaly)) * kRadian;
  const double obliquity = (23.439 - 0.00000036 * day) * kRadian;
  return {std::asin(std::sin(obliquity) * std::sin(longitude)) / kRadian,
          std::atan2(std::cos(obliquity) * std::sin(longitude), std::cos(longitude)) / kRadian,
          15 * std::fmod(18.697374558 + 24.06570982441908 * day, 24)};
}

double hourAngle(const Place& place, const Sun& sun) {
  return std::remainder(sun.siderealTime + place.longitude - sun.rightAscension, 360);
}

}  // namespace

double declination(double instant) {
  return sunAt(instant).declination;
}

double hourAngle(const Place& place, double instant) {
  return hourAngle(place, sunAt(instant));
}

double altitude(const Place& place, double instant) {
  const Sun sun = sunAt(instant);
  const double latitude = place.latitude * kRadian;
  const double height = sun.declination * kRadian;
  return std::asin(std::sin(latitude) * std::sin(height) +
                   std::cos(latitude) * std::cos(height) *
                       std::cos(hourAngle(place, sun) * kRadian)) /
         kRadian;
}

double noonNear(const Place& place, double instant) {
  for (int time = 0; time < 4; ++time)
    instant -= hourAngle(place, instant) * 240;
  return instant;
}

std::optional<double> passage(const Place& place, double wanted, double from, double until) {
  const bool isAboveFirst = altitude(place, from) > wanted;
  if (isAboveFirst == (altitude(place, until) > wanted)) return std::nullopt;
  while (until - from > 0.2) {
    const double middle = (from + until) / 2;
    (isAboveFirst == (altitude(place, middle) > wanted) ? from : until) = middle;
  }
  return from;
}

}  // namespace Sky
