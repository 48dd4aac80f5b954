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

constexpr std::array<std::string_view, Adhan::kCaseCount<Adhan::Prayer>> kPrayerNames{
    "Fajr", "Sunrise", "Dhuhr", "Asr", "Maghrib", "Isha"};

PrayerTime row(std::string_view name, Date time) {
  return {.id = Uuid::random(), .name = std::string(name), .time = time};
}

void addSunnahRows(const Adhan::SunnahTimes& sunnah, std::vector<PrayerTime>& rows) {
  rows.push_back(row("Middle of Night", sunnah.middleOfTheNight));
  rows.back().isSunnah = true;
  rows.push_back(row("Last Third", sunnah.lastThirdOfTheNight));
  rows.back().isSunnah = true;
}

}  // namespace

Adhan::CalculationMethod adhanMethod(PrayerCalculationMethod method) {
  return entryOf(method).method;
}

std::string_view displayName(PrayerCalculationMethod method) {
  return entryOf(method).displayName;
}

std::string_view displayName(Adhan::Prayer prayer) {
  return kPrayerNames[static_cast<std::size_t>(prayer)];
}

Adhan::CalculationParameters PrayerTimesCalculator::parameters(const AppSettings& settings) {
  auto result = Adhan::params(adhanMethod(settings.calculationMethod));
  const bool hanafi = settings.asrCalculation == AsrCalculation::hanafi;
  result.madhab = hanafi ? Adhan::Madhab::hanafi : Adhan::Madhab::shafi;
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
  for (const auto prayer : Adhan::allCases<Adhan::Prayer>()) {
    rows.push_back(row(displayName(prayer), times->time(prayer)));
    rows.back().isSunrise = prayer == Adhan::Prayer::sunrise;
  }
  const auto sunnah = showSunnah ? Adhan::SunnahTimes::make(*times) : std::nullopt;
  if (sunnah) addSunnahRows(*sunnah, rows);
  return rows;
}

}  // namespace Hilalor
