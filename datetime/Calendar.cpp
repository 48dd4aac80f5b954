#include "datetime/Calendar.hpp"

#include <cmath>
#include <cstdint>

#include "datetime/CalendarEngine.hpp"

namespace Hilalor {
namespace {

constexpr std::int64_t kSecondsPerDay = CalendarEngine::kSecondsPerDay;

// An instant as the clocks on the wall show it.
struct LocalTime {
  std::int64_t seconds = 0;  // since 1970-01-01 00:00 local time
  double fraction = 0;       // of a second, in [0, 1)
};

std::optional<LocalTime> localTime(Date date, const TimeZone& zone) {
  constexpr auto kFarthest = static_cast<double>(CalendarEngine::kFarthestSecond);
  if (!(std::abs(date.secondsSince1970) <= kFarthest)) return std::nullopt;
  const double whole = std::floor(date.secondsSince1970);
  return LocalTime{static_cast<std::int64_t>(whole) + zone.secondsFromUTC(date),
                   date.secondsSince1970 - whole};
}

}  // namespace

Calendar::Calendar(CalendarIdentifier identifier)
    : Calendar(identifier, std::nullopt, Region{"en_US"}) {}

Calendar::Calendar(CalendarIdentifier identifier, TimeZone zone)
    : Calendar(identifier, std::optional(std::move(zone)), Region{"en_US"}) {}

Calendar::Calendar(CalendarIdentifier identifier, std::optional<TimeZone> zone, Region region)
    : identifier_(identifier), zone_(std::move(zone)), region_(std::move(region)) {}

Calendar::Calendar(const Calendar& other)
    : Calendar(other.identifier_, other.zone_, other.region_) {
  hijriDaysAhead_ = other.hijriDaysAhead_;
}

Calendar& Calendar::operator=(const Calendar& other) {
  if (this != &other) *this = Calendar(other);
  return *this;
}

Calendar::Calendar(Calendar&&) noexcept = default;
Calendar& Calendar::operator=(Calendar&&) noexcept = default;
Calendar::~Calendar() = default;

Calendar Calendar::ofUser(const Moment& moment) {
  return {CalendarIdentifier::gregorian, moment.zone, moment.region};
}

Calendar Calendar::withHijriAhead(int days) const {
  Calendar result(identifier_, zone_, region_);
  result.hijriDaysAhead_ = days;
  return result;
}

TimeZone Calendar::timeZone() const {
  return zone_ ? *zone_ : TimeZone::current();
}

CalendarEngine* Calendar::engine() const {
  if (!engine_) engine_ = CalendarEngine::make(identifier_, region_, hijriDaysAhead_);
  return engine_.get();
}

DateComponents Calendar::components(Date date) const {
  auto* arithmetic = engine();
  const auto local = localTime(date, timeZone());
  return arithmetic && local ? arithmetic->components(local->seconds) : DateComponents();
}

int Calendar::weekday(Date date) const {
  const auto local = localTime(date, timeZone());
  if (!local) return 1;
  // 1970-01-01 was a Thursday.
  return static_cast<int>(((CalendarEngine::dayOf(local->seconds) + 4) % 7 + 7) % 7) + 1;
}

std::optional<Date> Calendar::date(const DateComponents& components) const {
  auto* arithmetic = engine();
  const auto local = arithmetic ? arithmetic->seconds(components) : std::nullopt;
  if (!local) return std::nullopt;
  // A bare day is meant whole: where it has no midnight it begins when the clock goes on.
  const bool bareDay = !components.hour && !components.minute && !components.second;
  const auto skipped = bareDay ? TimeZone::Skipped::firstAfter : TimeZone::Skipped::asMuchLater;
  return Date{static_cast<double>(timeZone().utcSeconds(*local, skipped))};
}

std::optional<Date> Calendar::adding(CalendarUnit unit, int amount, Date date) const {
  auto* arithmetic = engine();
  const auto zone = timeZone();
  const auto local = localTime(date, zone);
  if (!arithmetic || !local) return std::nullopt;
  const auto target = arithmetic->adding(unit, amount, local->seconds);
  if (!target) return std::nullopt;
  const auto utc = zone.utcSeconds(*target, TimeZone::Skipped::asMuchLater);
  return Date{static_cast<double>(utc) + local->fraction};
}

std::optional<int> Calendar::daysInMonth(Date date) const {
  auto* arithmetic = engine();
  const auto local = localTime(date, timeZone());
  return arithmetic && local ? arithmetic->daysInMonth(local->seconds) : std::nullopt;
}

std::optional<int> Calendar::ordinalDay(Date date) const {
  auto* arithmetic = engine();
  const auto local = localTime(date, timeZone());
  return arithmetic && local ? arithmetic->ordinalDay(local->seconds) : std::nullopt;
}

Date Calendar::startOfDay(Date date) const {
  const auto zone = timeZone();
  const auto local = localTime(date, zone);
  if (!local) return date;
  const auto midnight = CalendarEngine::dayOf(local->seconds) * kSecondsPerDay;
  const auto start = zone.utcSeconds(midnight, TimeZone::Skipped::firstAfter);
  return {static_cast<double>(start)};
}

bool Calendar::isSameMonth(Date one, Date other) const {
  const auto first = components(one);
  const auto second = components(other);
  return first.year && first.year == second.year && first.month == second.month;
}

int Calendar::firstWeekday() const {
  const auto* arithmetic = engine();
  return arithmetic ? arithmetic->firstWeekday() : 1;
}

bool Calendar::isWeekend(Date date) const {
  const auto* arithmetic = engine();
  const auto local = localTime(date, timeZone());
  return arithmetic && local && arithmetic->isWeekend(local->seconds);
}

}  // namespace Hilalor
