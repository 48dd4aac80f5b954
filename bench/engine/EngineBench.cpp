#include <benchmark/benchmark.h>

#include "Adhan/PrayerTimes.hpp"
#include "Adhan/Qibla.hpp"
#include "Adhan/SunnahTimes.hpp"
#include "bench/engine/Workload.hpp"

namespace {

using namespace Adhan;

void prayerTimes(benchmark::State& state, CalculationMethod method) {
  const auto parameters = params(method);
  Bench::Workload work;
  for (auto _ : state) {
    benchmark::DoNotOptimize(PrayerTimes::make(work.place(), work.date(), parameters));
    work.advance();
  }
}

const bool registered = [] {
  for (const auto method : allCases<CalculationMethod>()) {
    const std::string name = "PrayerTimes/" + std::string(rawValue(method));
    benchmark::RegisterBenchmark(name.c_str(), prayerTimes, method);
  }
  return true;
}();

void sunnahTimes(benchmark::State& state) {
  const auto parameters = params(CalculationMethod::muslimWorldLeague);
  Bench::Workload work;
  for (auto _ : state) {
    const auto today = PrayerTimes::make(work.place(), work.date(), parameters);
    benchmark::DoNotOptimize(SunnahTimes::make(today.value()));
    work.advance();
  }
}
BENCHMARK(sunnahTimes)->Name("PrayerTimesAndSunnahTimes");

void qibla(benchmark::State& state) {
  Bench::Workload work;
  for (auto _ : state) {
    benchmark::DoNotOptimize(Qibla(work.place()));
    work.advance();
  }
}
BENCHMARK(qibla)->Name("Qibla");

}  // namespace
