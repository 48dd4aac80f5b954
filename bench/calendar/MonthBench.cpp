#include <benchmark/benchmark.h>

#include "rules/calendar/CalendarModel.hpp"
#include "rules/calendar/HolidaysProvider.hpp"

namespace {

using namespace Hilalor;

// Month after month from November 2025 on, for ten years and round again.
class Months {
 public:
  explicit Months(PrimaryCalendar calendar) : calendar_(calendar) {}

  [[nodiscard]] CalendarModel next() {
    step_ = (step_ + 1) % 120;
    return {Date{1763300000.0 + 2'630'000.0 * step_}, calendar_};
  }

 private:
  PrimaryCalendar calendar_;
  int step_ = 0;
};

void page(benchmark::State& state, PrimaryCalendar calendar) {
  Months months(calendar);
  for (auto _ : state) {
    const auto model = months.next();
    benchmark::DoNotOptimize(model.page(Moment::at(model.displayDate), HolidayLabels::shown));
  }
}
BENCHMARK_CAPTURE(page, gregorian, PrimaryCalendar::gregorian)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(page, hijri, PrimaryCalendar::hijri)->Unit(benchmark::kMicrosecond);

// The same figures, each asked of the model on its own, as a screen might cell by cell.
void properties(benchmark::State& state, PrimaryCalendar calendar) {
  Months months(calendar);
  for (auto _ : state) {
    const auto model = months.next();
    benchmark::DoNotOptimize(model.monthName());
    benchmark::DoNotOptimize(model.secondaryMonthHeader());
    for (const auto& day : model.days()) {
      if (!day) continue;
      const auto date = model.date(*day).value_or(Date());
      benchmark::DoNotOptimize(model.secondaryDay(*day));
      benchmark::DoNotOptimize(model.secondaryMonthName(*day));
      benchmark::DoNotOptimize(model.todayDay(model.displayDate));
      benchmark::DoNotOptimize(Calendar::ofUser(Moment::at(date)).isWeekend(date));
      benchmark::DoNotOptimize(HolidaysProvider::label(HolidaysProvider::holidays(date)));
    }
  }
}
BENCHMARK_CAPTURE(properties, gregorian, PrimaryCalendar::gregorian)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(properties, hijri, PrimaryCalendar::hijri)->Unit(benchmark::kMicrosecond);

void nextMonth(benchmark::State& state, PrimaryCalendar calendar) {
  Months months(calendar);
  for (auto _ : state)
    benchmark::DoNotOptimize(months.next().nextMonth());
}
BENCHMARK_CAPTURE(nextMonth, gregorian, PrimaryCalendar::gregorian)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(nextMonth, hijri, PrimaryCalendar::hijri)->Unit(benchmark::kMicrosecond);

}  // namespace
