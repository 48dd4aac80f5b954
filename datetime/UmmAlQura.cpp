#include "datetime/UmmAlQura.hpp"

#include <cmath>

namespace Hilalor {
namespace {

constexpr int kFirstYear = 1300;
constexpr int kMonths = (1600 - kFirstYear + 1) * 12;
constexpr double kMeanLength = 29.530588;
constexpr double kMillisecondsPerDay = 86'400'000;

// First days of months, which count from the start of the table.
class MonthStarts {
 public:
  explicit MonthStarts(icu::Calendar& calendar) : calendar_(calendar) {}

  std::optional<std::int64_t> operator()(int month) {
    calendar_.clear();
    calendar_.set(UCAL_EXTENDED_YEAR, kFirstYear + month / 12);
    calendar_.set(UCAL_MONTH, month % 12);
    calendar_.set(UCAL_DATE, 1);
    UErrorCode status = U_ZERO_ERROR;
    const double milliseconds = calendar_.getTime(status);
    if (U_FAILURE(status)) return std::nullopt;
    return static_cast<std::int64_t>(std::floor(milliseconds / kMillisecondsPerDay));
  }

 private:
  icu::Calendar& calendar_;
};

}  // namespace

std::optional<UmmAlQuraMonth> ummAlQuraMonth(icu::Calendar& calendar, std::int64_t day) {
  MonthStarts startOf(calendar);
  const auto tableStart = startOf(0);
  if (!tableStart) return std::nullopt;
  const double guess = std::floor(static_cast<double>(day - *tableStart) / kMeanLength);
  // A month to either side, since the guess may be off by one.
  if (!(guess >= 1 && guess < kMonths - 1)) return std::nullopt;
  auto month = static_cast<int>(guess);
  auto first = startOf(month);
  auto next = startOf(month + 1);
  while (first && *first > day) {
    next = first;
    first = startOf(--month);
  }
  while (next && *next <= day) {
    first = next;
    next = startOf(++month + 1);
  }
  if (!first || !next) return std::nullopt;
  return UmmAlQuraMonth{kFirstYear + month / 12, month % 12 + 1, *first,
                        static_cast<int>(*next - *first)};
}

}  // namespace Hilalor
