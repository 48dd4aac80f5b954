#include "datetime/ZoneRule.hpp"

#include <cctype>
#include <chrono>

namespace Hilalor {
namespace {

constexpr int kSecondsPerHour = 3600;
constexpr int kSecondsPerDay = 86400;

// Reads the rule from left to right; every reader answers none once the text does not fit.
class RuleText {
 public:
  explicit RuleText(std::string_view text) : rest_(text) {}

  [[nodiscard]] bool atEnd() const { return rest_.empty(); }
  [[nodiscard]] bool nextIs(char c) const { return !rest_.empty() && rest_.front() == c; }

  bool take(char c) {
    if (!nextIs(c)) return false;
    rest_.remove_prefix(1);
    return true;
  }

  // "EET" or "<+03>".
  bool takeName() {
    const bool quoted = take('<');
    std::size_t length = 0;
    while (length < rest_.size() && isNameCharacter(rest_[length], quoted))
      ++length;
    rest_.remove_prefix(length);
    return length >= 3 && (!quoted || take('>'));
  }

  std::optional<int> number(int lowest, int highest) {
    int value = 0;
    std::size_t length = 0;
    while (length < rest_.size() && length < 4 && isDigit(rest_[length])) {
      value = value * 10 + (rest_[length] - '0');
      ++length;
    }
    rest_.remove_prefix(length);
    if (length == 0 || value < lowest || value > highest) return std::nullopt;
    return value;
  }

  // "2", "-1:30", "24:00:00", in seconds.
  std::optional<int> time(int highestHour) {
    const bool negative = take('-');
    if (!negative) take('+');
    const auto hours = number(0, highestHour);
    if (!hours) return std::nullopt;
    int seconds = *hours * kSecondsPerHour;
    for (const int unit : {60, 1}) {
      if (!take(':')) break;
      const auto part = number(0, 59);
      if (!part) return std::nullopt;
      seconds += *part * unit;
    }
    return negative ? -seconds : seconds;
  }

  std::optional<ZoneRule::ChangeDay> changeDay() {
    auto change = dayOfChange();
    if (change && take('/')) {
      const auto seconds = time(167);
      if (!seconds) return std::nullopt;
      change->localSeconds = *seconds;
    }
    return change;
  }

 private:
  static bool isDigit(char c) { return c >= '0' && c <= '9'; }
  static bool isNameCharacter(char c, bool quoted) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0 ||
           (quoted && (isDigit(c) || c == '+' || c == '-'));
  }

  std::optional<ZoneRule::ChangeDay> dayOfChange() {
    ZoneRule::ChangeDay change;
    if (take('M')) {
      const auto month = number(1, 12);
      if (!month || !take('.')) return std::nullopt;
      const auto week = number(1, 5);
      if (!week || !take('.')) return std::nullopt;
      const auto weekday = number(0, 6);
      if (!weekday) return std::nullopt;
      change.month = *month;
      change.week = *week;
      change.weekday = *weekday;
      return change;
    }
    const bool julian = take('J');
    const auto day = number(julian ? 1 : 0, 365);
    if (!day) return std::nullopt;
    change.kind = julian ? ZoneRule::ChangeDay::Kind::julian : ZoneRule::ChangeDay::Kind::zeroBased;
    change.day = *day;
    return change;
  }

  std::string_view rest_;
};

std::chrono::sys_days dayInYear(const ZoneRule::ChangeDay& change, std::chrono::year year) {
  using namespace std::chrono;
  using Kind = ZoneRule::ChangeDay::Kind;
  const sys_days newYear = year / January / 1;
  if (change.kind == Kind::zeroBased) return newYear + days(change.day);
  if (change.kind == Kind::julian) {
    const bool afterLeapDay = year.is_leap() && change.day >= 60;
    return newYear + days(change.day - 1 + (afterLeapDay ? 1 : 0));
  }
  const auto month = year / std::chrono::month(static_cast<unsigned>(change.month));
  const weekday day(static_cast<unsigned>(change.weekday));
  if (change.week == 5) return month / day[last];
  return month / day[static_cast<unsigned>(change.week)];
}

std::int64_t changeInUTC(const ZoneRule::ChangeDay& change, std::chrono::year year, int offset) {
  const std::int64_t day = dayInYear(change, year).time_since_epoch().count();
  return day * kSecondsPerDay + change.localSeconds - offset;
}

std::chrono::year yearOf(std::int64_t localSeconds) {
  using namespace std::chrono;
  const auto day = floor<days>(sys_seconds(seconds(localSeconds)));
  return year_month_day(day).year();
}

}  // namespace

std::optional<ZoneRule> ZoneRule::parsed(std::string_view text) {
  RuleText rule(text);
  ZoneRule result;
  if (!rule.takeName()) return std::nullopt;
  // POSIX counts offsets westward.
  const auto standard = rule.time(24);
  if (!standard) return std::nullopt;
  result.standardOffset_ = -*standard;
  if (rule.atEnd()) return result;

  Saving saving;
  if (!rule.takeName()) return std::nullopt;
  saving.offset = result.standardOffset_ + kSecondsPerHour;
  if (!rule.nextIs(',')) {
    const auto offset = rule.time(24);
    if (!offset) return std::nullopt;
    saving.offset = -*offset;
  }
  if (!rule.take(',')) return std::nullopt;
  const auto start = rule.changeDay();
  if (!start || !rule.take(',')) return std::nullopt;
  const auto end = rule.changeDay();
  if (!end || !rule.atEnd()) return std::nullopt;
  saving.start = *start;
  saving.end = *end;
  result.saving_ = saving;
  return result;
}

int ZoneRule::offsetAt(std::int64_t utcSeconds) const {
  if (!saving_) return standardOffset_;
  const auto year = yearOf(utcSeconds + standardOffset_);
  const auto start = changeInUTC(saving_->start, year, standardOffset_);
  const auto end = changeInUTC(saving_->end, year, saving_->offset);
  // South of the equator the saving runs across the new year.
  const bool saves = start < end ? utcSeconds >= start && utcSeconds < end
                                 : utcSeconds >= start || utcSeconds < end;
  return saves ? saving_->offset : standardOffset_;
}

}  // namespace Hilalor
