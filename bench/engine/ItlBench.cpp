// Days a second of the engine against those of libitl (Debian's libitl-dev), a C library of prayer
// times with formulas of its own. Each iteration times a stretch of both, one after the other, so
// that whatever else the machine does slows both alike; "ratio" is the median over the iterations.

#include <benchmark/benchmark.h>
#include <itl/prayer.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <vector>

#include "bench/engine/Workload.hpp"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kMuslimWorldLeague = 5;
constexpr int kDaysPerStretch = 1680;  // every place on every day of the workload's year

// How libitl goes about days without true dawn or nightfall.
enum class LongTwilight { itsDefault, leftOut };

template <typename Day>
double secondsPerStretch(Day&& computeDay) {
  Bench::Workload work;
  const auto start = Clock::now();
  for (int day = 0; day < kDaysPerStretch; ++day, work.advance())
    computeDay(work);
  return std::chrono::duration<double>(Clock::now() - start).count();
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

void againstLibitl(benchmark::State& state, LongTwilight longTwilight) {
  const auto parameters = Adhan::params(Adhan::CalculationMethod::muslimWorldLeague);
  Method method;
  getMethod(kMuslimWorldLeague, &method);
  if (longTwilight == LongTwilight::leftOut) method.extreme = 0;
  std::vector<double> ours;
  std::vector<double> ratios;
  for (auto _ : state) {
    ours.push_back(secondsPerStretch([&](const Bench::Workload& work) {
      benchmark::DoNotOptimize(Adhan::PrayerTimes::make(work.place(), work.date(), parameters));
    }));
    const double theirs =
        secondsPerStretch([&](const Bench::Workload& work) { libitlDay(work, method); });
    ratios.push_back(theirs / ours.back());
  }
  state.counters["days/s"] = kDaysPerStretch / median(ours);
  state.counters["ratio"] = median(ratios);
}
BENCHMARK_CAPTURE(againstLibitl, itsDefaults, LongTwilight::itsDefault)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(againstLibitl, withoutRulesForLongTwilight, LongTwilight::leftOut)
    ->Unit(benchmark::kMillisecond);

}  // namespace
