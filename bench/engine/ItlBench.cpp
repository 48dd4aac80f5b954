// Days a second of the engine against those of libitl (Debian's libitl-dev), a C library of prayer
// times with formulas of its own. Each iteration times both, one after the other, in processor
// time, so that whatever else the machine does slows both alike; "ratio" is the median over the
// iterations, how many times as long libitl takes. Both keep the sun of the dates they were last
// asked for: libitl hidden in itself, the engine in an Ephemeris.

#include <benchmark/benchmark.h>
#include <itl/prayer.h>

#include <algorithm>
#include <array>
#include <vector>

#include "bench/engine/Workload.hpp"
#include "tools/Usage.hpp"

namespace {

constexpr int kMuslimWorldLeague = 5;

// How libitl goes about days without true dawn or nightfall.
enum class LongTwilight { itsDefault, leftOut };

template <typename Day>
double secondsPerRound(Bench::Order order, Day&& computeDay) {
  Bench::Workload work(order);
  const double start = Hilalor::processorMicroseconds();
  for (std::size_t step = 0; step < Bench::Workload::kSteps; ++step, work.advance())
    computeDay(work);
  return (Hilalor::processorMicroseconds() - start) / 1e6;
}

void libitlDay(const Bench::Workload& work, const Method& method) {
  const auto& place = work.place();
  const Location location{place.longitude, place.latitude, 0, 0, 0, 1010, 10};
  const Date date{work.day(), work.month(), work.year()};
  std::array<Prayer, 6> prayers;
  getPrayerTimes(&location, &method, &date, prayers.data());
  benchmark::DoNotOptimize(prayers);
}

double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

void againstLibitl(benchmark::State& state, Bench::Order order, LongTwilight longTwilight) {
  const auto parameters = Adhan::params(Adhan::CalculationMethod::muslimWorldLeague);
  Method method;
  getMethod(kMuslimWorldLeague, &method);
  if (longTwilight == LongTwilight::leftOut) method.extreme = 0;
  Adhan::Ephemeris ephemeris;
  std::vector<double> ours;
  std::vector<double> ratios;
  for (auto _ : state) {
    ours.push_back(secondsPerRound(order, [&](const Bench::Workload& work) {
      benchmark::DoNotOptimize(
          Adhan::PrayerTimes::make(work.place(), work.date(), parameters, ephemeris));
    }));
    const double theirs =
        secondsPerRound(order, [&](const Bench::Workload& work) { libitlDay(work, method); });
    ratios.push_back(theirs / ours.back());
  }
  state.counters["days/s"] = Bench::Workload::kSteps / median(ours);
  state.counters["ratio"] = median(ratios);
}

BENCHMARK_CAPTURE(againstLibitl, dayAfterDay, Bench::Order::dayAfterDay, LongTwilight::itsDefault)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(againstLibitl, dateByDate, Bench::Order::dateByDate, LongTwilight::itsDefault)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(againstLibitl, dayAfterDayWithoutItsRulesForLongTwilight,
                  Bench::Order::dayAfterDay, LongTwilight::leftOut)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(againstLibitl, dateByDateWithoutItsRulesForLongTwilight, Bench::Order::dateByDate,
                  LongTwilight::leftOut)
    ->Unit(benchmark::kMillisecond);

}  // namespace
