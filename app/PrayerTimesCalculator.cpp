#include "app/PrayerTimesCalculator.hpp"

#include "Adhan/Models/CalculationParameters.hpp"
#include "Adhan/PrayerTimes.hpp"
#include "Adhan/SunnahTimes.hpp"
#include "datetime/Calendar.hpp"

namespace Hilalor {
namespace {

struct MethodEntry {
  PrayerCalculationMethod setting;
  Adhan::CalculationMethod method;
  std::string_view displayName;
};

using Setting = PrayerCalculationMethod;
using Method = Adhan::CalculationMethod;

constexpr std::array<MethodEntry, 12> kMethods{{
    {Setting::ummAlQura, Method::ummAlQura, "Umm Al-Qura, Makkah"},
    {Setting::muslimWorldLeague, Method::muslimWorldLeague, "Muslim World League"},
    {Setting::egyptian, Method::egyptian, "Egyptian General Authority"},
    {Setting::karachi, Method::karachi, "University of Karachi"},
    {Setting::dubai, Method::dubai, "Dubai (UAE)"},
    {Setting::moonsightingCommittee, Method::moonsightingCommittee, "Moonsighting Committee"},
    {Setting::northAmerica, Method::northAmerica, "ISNA (North America)"},
    {Setting::kuwait, Method::kuwait, "Kuwait"},
    {Setting::qatar, Method::qatar, "Qatar"},
    {Setting::singapore, Method::singapore, "Singapore / Malaysia"},
    {Setting::tehran, Method::tehran, "Tehran"},
    {Setting::turkey, Method::turkey, "Turkey (Diyanet)"},
}};

const MethodEntry& entryOf(PrayerCalculationMethod setting) {
  return kMethods[static_cast<std::size_t>(setting)];
}

Adhan::CalculationParameters parameters(const AppSettings& settings) {
  auto result = Adhan::params(adhanMethod(settings.calculationMethod));
  const bool hanafi = settings.asrCalculation == AsrCalculation::hanafi;
  result.madhab = hanafi ? Adhan::Madhab::hanafi : Adhan::Madhab::shafi;
  return result;
}

}  // namespace

Adhan::CalculationMethod adhanMethod(PrayerCalculationMethod method) {
  return entryOf(method).method;
}

std::string_view displayName(PrayerCalculationMethod method) {
  return entryOf(method).displayName;
}

std::vector<PrayerTime> PrayerTimesCalculator::calculate(Date date, double latitude,
                                                         double longitude, const TimeZone& timeZone,
                                                         bool showSunnah,
                                                         const AppSettings& settings) {
  const auto local = Calendar(CalendarIdentifier::gregorian, timeZone).components(date);
  const DateComponents day{local.year, local.month, local.day, {}, {}, {}};
  const auto found = times(day, latitude, longitude, settings);
  return found ? rows(*found, showSunnah) : std::vector<PrayerTime>();
}

std::optional<Adhan::PrayerTimes> PrayerTimesCalculator::times(const DateComponents& day,
                                                               double latitude, double longitude,
                                                               const AppSettings& settings) {
  return Adhan::PrayerTimes::make({latitude, longitude}, day, parameters(settings));
}

std::vector<PrayerTime> PrayerTimesCalculator::rows(const Adhan::PrayerTimes& times,
                                                    bool showSunnah) {
  std::vector<PrayerTime> result;
  result.reserve(8);
  const auto addPrayer = [&](std::string_view name, Date time) {
    result.push_back({Uuid::random(), std::string(name), time});
  };
  addPrayer("Fajr", times.fajr);
  addPrayer("Sunrise", times.sunrise);
  result.back().isSunrise = true;
  addPrayer("Dhuhr", times.dhuhr);
  addPrayer("Asr", times.asr);
  addPrayer("Maghrib", times.maghrib);
  addPrayer("Isha", times.isha);
  if (!showSunnah) return result;

  if (const auto sunnah = Adhan::SunnahTimes::make(times)) {
    addPrayer("Middle of Night", sunnah->middleOfTheNight);
    result.back().isSunnah = true;
    addPrayer("Last Third", sunnah->lastThirdOfTheNight);
    result.back().isSunnah = true;
  }
  return result;
}

}  // namespace Hilalor
