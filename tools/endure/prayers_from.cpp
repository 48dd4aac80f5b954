// prayers_from SECONDS LATITUDE LONGITUDE: prints the prayers of the sixty days that begin so many
// seconds after 1970, one a line: seconds and name.

#include <cstdio>
#include <cstdlib>

#include "Adhan/Extensions/UTCCalendar.hpp"
#include "Adhan/Models/CalculationParameters.hpp"
#include "Adhan/PrayerTimes.hpp"

int main(int argc, char* argv[]) {
  if (argc != 4) return 2;
  const auto parameters = Adhan::params(Adhan::CalculationMethod::ummAlQura);
  for (int day = 0; day < 60; ++day) {
    const auto date = Adhan::gregorianUTC().components({std::atof(argv[1]) + 86400.0 * day});
    const auto times =
        Adhan::PrayerTimes::make({std::atof(argv[2]), std::atof(argv[3])}, date, parameters);
    if (!times) return 1;
    std::printf("%.0f Fajr\n%.0f Dhuhr\n%.0f Asr\n%.0f Maghrib\n%.0f Isha\n",
                times->fajr.secondsSince1970, times->dhuhr.secondsSince1970,
                times->asr.secondsSince1970, times->maghrib.secondsSince1970,
                times->isha.secondsSince1970);
  }
  return 0;
}
