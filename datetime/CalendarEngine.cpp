#include "datetime/CalendarEngine.hpp"

#include <unicode/gregocal.h>

#include <cmath>
#include <map>
#include <string>

#include "datetime/UmmAlQura.hpp"

namespace Hilalor {
namespace {

using LocalSeconds = std::optional<std::int64_t>;

LocalSeconds inRange(std::int64_t seconds) {
  return std::abs(seconds) <= CalendarEngine::kFarthestSecond ? LocalSeconds(seconds)
                                                              : std::nullopt;
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

// What both calendars share: ICU's calendar, always set to GMT and fed with local time.
class LibraryEngine : public CalendarEngine {
 public:
  explicit LibraryEngine(std::unique_ptr<icu::Calendar> calendar)
      : calendar_(std::move(calendar)) {}

  [[nodiscard]] int firstWeekday() const override {
    UErrorCode status = U_ZERO_ERROR;
    const int day = calendar_->getFirstDayOfWeek(status);
    return U_SUCCESS(status) && day >= 1 && day <= 7 ? day : 1;
  }

  [[nodiscard]] bool isWeekend(std::int64_t local) const override {
    UErrorCode status = U_ZERO_ERROR;
    return calendar_->isWeekend(static_cast<double>(local) * 1000, status) != 0;
  }

 protected:
  [[nodiscard]] icu::Calendar& calendar() { return *calendar_; }

 private:
  std::unique_ptr<icu::Calendar> calendar_;
};

class GregorianEngine : public LibraryEngine {
 public:
  using LibraryEngine::LibraryEngine;

  DateComponents components(std::int64_t local) override {
    if (!set(local)) return {};
    return {field(UCAL_EXTENDED_YEAR), field(UCAL_MONTH) + 1, field(UCAL_DATE),
            field(UCAL_HOUR_OF_DAY),   field(UCAL_MINUTE),    field(UCAL_SECOND)};
  }

  LocalSeconds seconds(const DateComponents& fields) override {
    calendar().clear();
    calendar().set(UCAL_EXTENDED_YEAR, fields.year.value_or(1));
    calendar().set(UCAL_MONTH, fields.month.value_or(1) - 1);
    calendar().set(UCAL_DATE, fields.day.value_or(1));
    calendar().set(UCAL_HOUR_OF_DAY, fields.hour.value_or(0));
    calendar().set(UCAL_MINUTE, fields.minute.value_or(0));
    calendar().set(UCAL_SECOND, fields.second.value_or(0));
    return time();
  }

  LocalSeconds adding(CalendarUnit unit, int amount, std::int64_t local) override {
    if (!set(local)) return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    calendar().add(fieldOf(unit), amount, status);
    return U_SUCCESS(status) ? time() : std::nullopt;
  }

  std::optional<int> daysInMonth(std::int64_t local) override {
    if (!set(local)) return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    const int days = calendar().getActualMaximum(UCAL_DATE, status);
    return U_SUCCESS(status) ? std::optional(days) : std::nullopt;
  }

  std::optional<int> ordinalDay(std::int64_t local) override {
    return set(local) ? std::optional(field(UCAL_DAY_OF_YEAR)) : std::nullopt;
  }

 private:
  static UCalendarDateFields fieldOf(CalendarUnit unit) {
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

  bool set(std::int64_t local) {
    UErrorCode status = U_ZERO_ERROR;
    calendar().setTime(static_cast<double>(local) * 1000, status);
    return U_SUCCESS(status);
  }

  int field(UCalendarDateFields name) {
    UErrorCode status = U_ZERO_ERROR;
    return calendar().get(name, status);
  }

  LocalSeconds time() {
    UErrorCode status = U_ZERO_ERROR;
    const double milliseconds = calendar().getTime(status);
    if (!U_SUCCESS(status) || !(std::abs(milliseconds) < 1e18)) return std::nullopt;
    return inRange(static_cast<std::int64_t>(std::floor(milliseconds / 1000)));
  }
};

class HijriEngine : public LibraryEngine {
 public:
  HijriEngine(std::unique_ptr<icu::Calendar> calendar, int daysAhead)
      : LibraryEngine(std::move(calendar)), daysAhead_(daysAhead) {}

  DateComponents components(std::int64_t local) override {
    const std::int64_t day = dayOf(local);
    const auto month = months().monthOf(day);
    if (!month) return {};
    const int second = secondOfDay(local);
    return {static_cast<int>(month->year),
            month->month,
            static_cast<int>(day - month->firstDay) + 1,
            second / 3600,
            second / 60 % 60,
            second % 60};
  }

  LocalSeconds seconds(const DateComponents& fields) override {
    // 64 bits hold every sum of 32-bit fields.
    const auto first = months().firstDay(fields.year.value_or(1), fields.month.value_or(1));
    if (!first) return std::nullopt;
    const std::int64_t day = *first + fields.day.value_or(1) - 1;
    return inRange(day * kSecondsPerDay + std::int64_t{fields.hour.value_or(0)} * 3600 +
                   std::int64_t{fields.minute.value_or(0)} * 60 + fields.second.value_or(0));
  }

  LocalSeconds adding(CalendarUnit unit, int amount, std::int64_t local) override {
    if (unit == CalendarUnit::day) return inRange(local + amount * kSecondsPerDay);
    const int perUnit = unit == CalendarUnit::year ? 12 : 1;
    const auto day = months().addingMonths(std::int64_t{amount} * perUnit, dayOf(local));
    return day ? inRange(*day * kSecondsPerDay + secondOfDay(local)) : std::nullopt;
  }

  std::optional<int> daysInMonth(std::int64_t local) override {
    const auto month = months().monthOf(dayOf(local));
    return month ? std::optional(month->length) : std::nullopt;
  }

  std::optional<int> ordinalDay(std::int64_t local) override {
    return months().ordinalDay(dayOf(local));
  }

 private:
  [[nodiscard]] UmmAlQura months() { return UmmAlQura(calendar(), daysAhead_); }

  int daysAhead_;
};

}  // namespace

std::unique_ptr<CalendarEngine> CalendarEngine::make(CalendarIdentifier identifier,
                                                     const Region& region, int hijriDaysAhead) {
  auto calendar = libraryCalendar(localeOf(identifier, region));
  if (!calendar) return nullptr;
  if (identifier == CalendarIdentifier::islamicUmmAlQura) {
    return std::make_unique<HijriEngine>(std::move(calendar), hijriDaysAhead);
  }
  return std::make_unique<GregorianEngine>(std::move(calendar));
}

}  // namespace Hilalor
