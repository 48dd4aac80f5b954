#include "datetime/Calendar.hpp"

#include <unicode/gregocal.h>

#include <cmath>
#include <cstdint>
#include <map>
#include <string>

#include "datetime/CalendarEngine.hpp"
#include "datetime/UmmAlQura.hpp"

namespace Hilalor {
namespace {

// Far enough for every calendar of people, near enough that milliseconds stay exact.
constexpr double kFarthestSecond = 1e12;

constexpr std::int64_t kSecondsPerDay = 86400;

// An instant as the clocks on the wall show it.
struct LocalTime {
  std::int64_t seconds = 0;  // since 1970-01-01 00:00 local time
  double fraction = 0;       // of a second, in [0, 1)

  // Seconds since local midnight, also where the clock skipped it.
  [[nodiscard]] int secondOfDay() const {
    return static_cast<int>((seconds % kSecondsPerDay + kSecondsPerDay) % kSecondsPerDay);
  }
  // Days since 1970-01-01.
  [[nodiscard]] std::int64_t day() const { return (seconds - secondOfDay()) / kSecondsPerDay; }
};

std::optional<LocalTime> localTime(Date date, const TimeZone& zone) {
  if (!(std::abs(date.secondsSince1970) <= kFarthestSecond)) return std::nullopt;
  const double whole = std::floor(date.secondsSince1970);
  return LocalTime{static_cast<std::int64_t>(whole) + zone.secondsFromUTC(date),
                   date.secondsSince1970 - whole};
}

bool setLocal(icu::Calendar& calendar, std::int64_t localSeconds) {
  UErrorCode status = U_ZERO_ERROR;
  calendar.setTime(static_cast<double>(localSeconds) * 1000, status);
  return U_SUCCESS(status);
}

int field(const icu::Calendar& calendar, UCalendarDateFields name) {
  UErrorCode status = U_ZERO_ERROR;
  return calendar.get(name, status);
}

std::optional<std::int64_t> localSeconds(const icu::Calendar& calendar) {
  UErrorCode status = U_ZERO_ERROR;
  const double milliseconds = calendar.getTime(status);
  if (U_FAILURE(status) || !(std::abs(milliseconds) <= kFarthestSecond * 1000)) return std::nullopt;
  return static_cast<std::int64_t>(std::floor(milliseconds / 1000));
}

std::optional<UmmAlQuraMonth> hijriMonth(CalendarIdentifier identifier, icu::Calendar& calendar,
                                         const LocalTime& local) {
  if (identifier != CalendarIdentifier::islamicUmmAlQura) return std::nullopt;
  return ummAlQuraMonth(calendar, local.day());
}

UCalendarDateFields fieldOf(CalendarUnit unit) {
  switch (unit) {
    case CalendarUnit::day:
      return UCAL_DATE;
    case CalendarUnit::month:
      return UCAL_MONTH;
    case CalendarUnit::year:
      break;
  }
  return UCAL_YEAR;
}

icu::Locale localeOf(CalendarIdentifier identifier, const Region& region) {
  auto locale = icu::Locale::createCanonical(region.localeIdentifier.c_str());
  UErrorCode status = U_ZERO_ERROR;
  const bool hijri = identifier == CalendarIdentifier::islamicUmmAlQura;
  locale.setKeywordValue("calendar", hijri ? "islamic-umalqura" : "gregorian", status);
  return locale;
}

// Creating a calendar of ICU's reads its data each time; copying one does not.
std::unique_ptr<icu::Calendar> libraryCalendar(const icu::Locale& locale) {
  static std::map<std::string, std::unique_ptr<icu::Calendar>> prototypes;
  auto& prototype = prototypes[locale.getName()];
  if (!prototype) {
    UErrorCode status = U_ZERO_ERROR;
    prototype.reset(icu::Calendar::createInstance(*icu::TimeZone::getGMT(), locale, status));
    if (U_FAILURE(status)) prototype.reset();
  }
  return std::unique_ptr<icu::Calendar>(prototype ? prototype->clone() : nullptr);
}

}  // namespace

Calendar::Calendar(CalendarIdentifier identifier)
    : Calendar(identifier, std::nullopt, Region{"en_US"}) {}

Calendar::Calendar(CalendarIdentifier identifier, TimeZone zone)
    : Calendar(identifier, std::optional(std::move(zone)), Region{"en_US"}) {}

Calendar::Calendar(CalendarIdentifier identifier, std::optional<TimeZone> zone, Region region)
    : identifier_(identifier), zone_(std::move(zone)), region_(std::move(region)) {}

Calendar::Calendar(const Calendar& other)
    : Calendar(other.identifier_, other.zone_, other.region_) {}

Calendar& Calendar::operator=(const Calendar& other) {
  if (this != &other) *this = Calendar(other);
  return *this;
}

Calendar::Calendar(Calendar&&) noexcept = default;
Calendar& Calendar::operator=(Calendar&&) noexcept = default;
Calendar::~Calendar() = default;

Calendar Calendar::current() {
  return {CalendarIdentifier::gregorian, std::nullopt, Region::current()};
}

TimeZone Calendar::timeZone() const {
  return zone_ ? *zone_ : TimeZone::current();
}

CalendarEngine& Calendar::engine() const {
  if (!engine_) {
    engine_ = std::make_unique<CalendarEngine>(
        CalendarEngine{libraryCalendar(localeOf(identifier_, region_))});
  }
  return *engine_;
}

DateComponents Calendar::components(Date date) const {
  auto* calendar = engine().calendar.get();
  const auto local = localTime(date, timeZone());
  if (calendar == nullptr || !local) return {};
  if (const auto month = hijriMonth(identifier_, *calendar, *local)) {
    const int second = local->secondOfDay();
    return {month->year,   month->month,     static_cast<int>(local->day() - month->firstDay) + 1,
            second / 3600, second / 60 % 60, second % 60};
  }
  if (!setLocal(*calendar, local->seconds)) return {};
  return {field(*calendar, UCAL_EXTENDED_YEAR), field(*calendar, UCAL_MONTH) + 1,
          field(*calendar, UCAL_DATE),          field(*calendar, UCAL_HOUR_OF_DAY),
          field(*calendar, UCAL_MINUTE),        field(*calendar, UCAL_SECOND)};
}

int Calendar::weekday(Date date) const {
  const auto local = localTime(date, timeZone());
  if (!local) return 1;
  // 1970-01-01 was a Thursday.
  return static_cast<int>(((local->day() + 4) % 7 + 7) % 7) + 1;
}

std::optional<Date> Calendar::date(const DateComponents& components) const {
  auto* calendar = engine().calendar.get();
  if (calendar == nullptr) return std::nullopt;
  calendar->clear();
  calendar->set(UCAL_EXTENDED_YEAR, components.year.value_or(1));
  calendar->set(UCAL_MONTH, components.month.value_or(1) - 1);
  calendar->set(UCAL_DATE, components.day.value_or(1));
  calendar->set(UCAL_HOUR_OF_DAY, components.hour.value_or(0));
  calendar->set(UCAL_MINUTE, components.minute.value_or(0));
  calendar->set(UCAL_SECOND, components.second.value_or(0));
  const auto local = localSeconds(*calendar);
  if (!local) return std::nullopt;
  // A bare day is meant whole: where it has no midnight it begins when the clock goes on.
  const bool bareDay = !components.hour && !components.minute && !components.second;
  const auto skipped = bareDay ? TimeZone::Skipped::firstAfter : TimeZone::Skipped::asMuchLater;
  return Date{static_cast<double>(timeZone().utcSeconds(*local, skipped))};
}

std::optional<Date> Calendar::adding(CalendarUnit unit, int amount, Date date) const {
  auto* calendar = engine().calendar.get();
  const auto zone = timeZone();
  const auto local = localTime(date, zone);
  if (calendar == nullptr || !local || !setLocal(*calendar, local->seconds)) return std::nullopt;
  UErrorCode status = U_ZERO_ERROR;
  calendar->add(fieldOf(unit), amount, status);
  const auto target = localSeconds(*calendar);
  if (U_FAILURE(status) || !target) return std::nullopt;
  const auto utc = zone.utcSeconds(*target, TimeZone::Skipped::asMuchLater);
  return Date{static_cast<double>(utc) + local->fraction};
}

std::optional<int> Calendar::daysInMonth(Date date) const {
  auto* calendar = engine().calendar.get();
  const auto local = localTime(date, timeZone());
  if (calendar == nullptr || !local) return std::nullopt;
  if (const auto month = hijriMonth(identifier_, *calendar, *local)) return month->length;
  if (!setLocal(*calendar, local->seconds)) return std::nullopt;
  UErrorCode status = U_ZERO_ERROR;
  const int days = calendar->getActualMaximum(UCAL_DATE, status);
  return U_SUCCESS(status) ? std::optional(days) : std::nullopt;
}

std::optional<int> Calendar::ordinalDay(Date date) const {
  auto* calendar = engine().calendar.get();
  const auto local = localTime(date, timeZone());
  if (calendar == nullptr || !local || !setLocal(*calendar, local->seconds)) return std::nullopt;
  return field(*calendar, UCAL_DAY_OF_YEAR);
}

Date Calendar::startOfDay(Date date) const {
  const auto zone = timeZone();
  const auto local = localTime(date, zone);
  if (!local) return date;
  const auto midnight = local->day() * kSecondsPerDay;
  const auto start = zone.utcSeconds(midnight, TimeZone::Skipped::firstAfter);
  return {static_cast<double>(start)};
}

bool Calendar::isSameMonth(Date one, Date other) const {
  const auto first = components(one);
  const auto second = components(other);
  return first.year && first.year == second.year && first.month == second.month;
}

int Calendar::firstWeekday() const {
  auto* calendar = engine().calendar.get();
  if (calendar == nullptr) return 1;
  UErrorCode status = U_ZERO_ERROR;
  const int day = calendar->getFirstDayOfWeek(status);
  return U_SUCCESS(status) && day >= 1 && day <= 7 ? day : 1;
}

bool Calendar::isWeekend(Date date) const {
  auto* calendar = engine().calendar.get();
  const auto local = localTime(date, timeZone());
  if (calendar == nullptr || !local) return false;
  UErrorCode status = U_ZERO_ERROR;
  return calendar->isWeekend(static_cast<double>(local->seconds) * 1000, status) != 0;
}

}  // namespace Hilalor
