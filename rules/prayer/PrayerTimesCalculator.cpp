#include "rules/prayer/PrayerTimesCalculator.hpp"

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

PrayerTime row(ListedTime listed, Date time) {
  return {.id = Uuid::random(),
          .name = std::string(displayName(listed)),
          .time = time,
          .isSunrise = listed == ListedTime::sunrise,
          .isSunnah = isSunnah(listed)};
}

}  // namespace

Adhan::CalculationMethod adhanMethod(PrayerCalculationMethod method) {
  return entryOf(method).method;
}

std::string_view displayName(PrayerCalculationMethod method) {
  return entryOf(method).displayName;
}

Adhan::CalculationParameters PrayerTimesCalculator::parameters(const AppSettings& settings) {
  auto result = Adhan::params(adhanMethod(settings.calculationMethod));
  const bool hanafi = settings.asrCalculation == AsrCalculation::hanafi;
  result.madhab = hanafi ? Adhan::Madhab::hanafi : Adhan::Madhab::shafi;
  const auto own = [&](Adhan::Prayer prayer) {
    return static_cast<int>(settings.minutes(prayer).value());
  };
  using enum Adhan::Prayer;
  result.adjustments = {own(fajr), own(sunrise), own(dhuhr), own(asr), own(maghrib), own(isha)};
  return result;
}

std::vector<PrayerTime> PrayerTimesCalculator::calculate(Date date, double latitude,
                                                         double longitude, const TimeZone& timeZone,
                                                         bool showSunnah,
                                                         const AppSettings& settings) {
  const auto local = Calendar(CalendarIdentifier::gregorian, timeZone).components(date);
  const DateComponents day{local.year, local.month, local.day, {}, {}, {}};
  const auto times = Adhan::PrayerTimes::make({latitude, longitude}, day, parameters(settings));
  std::vector<PrayerTime> rows;
  if (!times) return rows;
  rows.reserve(8);
  for (const auto prayer : Adhan::allCases<Adhan::Prayer>())
    rows.push_back(row(listed(prayer), times->time(prayer)));
  if (const auto sunnah = showSunnah ? Adhan::SunnahTimes::make(*times) : std::nullopt) {
    rows.push_back(row(ListedTime::middleOfTheNight, sunnah->middleOfTheNight));
    rows.push_back(row(ListedTime::lastThirdOfTheNight, sunnah->lastThirdOfTheNight));
  }
  return rows;
}

}  // namespace Hilalor
