#include "datetime/UmmAlQura.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "datetime/PublishedMonths.hpp"

namespace Hilalor {
namespace {

constexpr double kMeanLength = 29.530588;
constexpr double kMillisecondsPerDay = 86'400'000;
constexpr std::int64_t kMonthsPublished = std::int64_t{kPublishedYears.size()} * 12;

constexpr std::int64_t floorDivided(std::int64_t value, std::int64_t divisor) {
  return value / divisor - (value % divisor < 0 ? 1 : 0);
}

// Where each published month begins, in days after the first one, and where the last one ends.
constexpr auto kPublishedStarts = [] {
  std::array<std::int16_t, kMonthsPublished + 1> starts{};
  for (std::size_t month = 0; month < kMonthsPublished; ++month) {
    const int length = 29 + (kPublishedYears[month / 12] >> (11 - month % 12) & 1);
    starts[month + 1] = static_cast<std::int16_t>(starts[month] + length);
  }
  return starts;
}();

// Months counted from the first published one.
constexpr std::int64_t monthsSinceFirstPublished(std::int64_t year, std::int64_t month) {
  return (year - kFirstPublishedYear) * 12 + month - 1;
}

}  // namespace

std::optional<std::int64_t> UmmAlQura::firstDay(std::int64_t year, std::int64_t month) {
  const std::int64_t months = monthsSinceFirstPublished(year, month);
  if (months >= 0 && months <= kMonthsPublished) {
    return kFirstPublishedDay + kPublishedStarts[static_cast<std::size_t>(months)] - daysAhead_;
  }
  const std::int64_t years = floorDivided(months, 12);
  const auto first =
      libraryFirstDay(kFirstPublishedYear + years, static_cast<int>(months - years * 12) + 1);
  return first ? std::optional(*first - daysAhead_) : std::nullopt;
}

std::optional<std::int64_t> UmmAlQura::libraryFirstDay(std::int64_t year, int month) {
  if (std::abs(year) > std::numeric_limits<std::int32_t>::max()) return std::nullopt;
  library_.clear();
  library_.set(UCAL_EXTENDED_YEAR, static_cast<std::int32_t>(year));
  library_.set(UCAL_MONTH, month - 1);
  library_.set(UCAL_DATE, 1);
  UErrorCode status = U_ZERO_ERROR;
  const double milliseconds = library_.getTime(status);
  if (U_FAILURE(status)) return std::nullopt;
  return static_cast<std::int64_t>(std::floor(milliseconds / kMillisecondsPerDay));
}

std::optional<UmmAlQuraMonth> UmmAlQura::monthOf(std::int64_t day) {
  const auto daysSince = static_cast<double>(day - kFirstPublishedDay);
  auto months = static_cast<std::int64_t>(std::floor(daysSince / kMeanLength));
  const auto start = [&](std::int64_t index) { return firstDay(kFirstPublishedYear, index + 1); };
  auto first = start(months);
  auto next = start(months + 1);
  while (first && *first > day) {
    next = first;
    first = start(--months);
  }
  while (next && *next <= day) {
    first = next;
    next = start(++months + 1);
  }
  if (!first || !next) return std::nullopt;
  const std::int64_t years = floorDivided(months, 12);
  return UmmAlQuraMonth{kFirstPublishedYear + years, static_cast<int>(months - years * 12) + 1,
                        *first, static_cast<int>(*next - *first)};
}

std::optional<std::int64_t> UmmAlQura::addingMonths(std::int64_t months, std::int64_t day) {
  const auto from = monthOf(day);
  if (!from) return std::nullopt;
  const auto first = firstDay(from->year, from->month + months);
  const auto next = firstDay(from->year, from->month + months + 1);
  if (!first || !next) return std::nullopt;
  return std::min(*first + day - from->firstDay, *next - 1);
}

std::optional<int> UmmAlQura::ordinalDay(std::int64_t day) {
  const auto month = monthOf(day);
  const auto first = month ? firstDay(month->year, 1) : std::nullopt;
  return first ? std::optional(static_cast<int>(day - *first) + 1) : std::nullopt;
}

}  // namespace Hilalor
