// Prints the longitude, in degrees, where on the equator noon prayer falls in the minute that
// begins so many seconds after 1970 in UTC: a place for a test that cannot wait for a prayer.
//
//   place_of_noon SECONDS

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "Adhan/Extensions/UTCCalendar.hpp"
#include "Adhan/Models/CalculationParameters.hpp"
#include "Adhan/PrayerTimes.hpp"

int main(int argc, char* argv[]) {
  if (argc != 2) return 2;
  const double minute = std::atof(argv[1]);
  const auto parameters = Adhan::params(Adhan::CalculationMethod::ummAlQura);
  for (double longitude = -180; longitude < 180; longitude += 0.05) {
    // The civil day at the place, by its sun.
    const auto date = Adhan::gregorianUTC().components({minute + 240 * longitude});
    const auto times = Adhan::PrayerTimes::make({0.5, longitude}, date, parameters);
    if (times && std::abs(times->dhuhr.secondsSince1970 - minute) < 1) {
      std::printf("%.2f\n", longitude);
      return 0;
    }
  }
  return 1;
}
