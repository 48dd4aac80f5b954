// Notes and preferences in files on the disk of the temporary folder.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "desktop/store/SqliteDefaultsStore.hpp"
#include "rules/calendar/NotesStore.hpp"
#include "tests/fakes/TemporaryFolder.hpp"
#include "tests/fakes/VirtualLoop.hpp"

namespace {

using namespace Hilalor;
using namespace Hilalor::Desktop;
using SteadyClock = std::chrono::steady_clock;

constexpr int kMany = 10'000;
constexpr std::size_t kLength = 500;

std::string textOf(std::int64_t number) {
  return std::string(kLength, static_cast<char>('a' + number % 26));
}

Date dayOf(std::int64_t number) {
  return {86400.0 * static_cast<double>(number % kMany)};
}

// A store in a folder of its own, closed again, with that many notes and a program's preferences.
class StoredNotes {
 public:
  explicit StoredNotes(int count) {
    SqliteDefaultsStore store(file(), loop);
    for (int number = 0; number < 25; ++number)
      store.setValue("preference" + std::to_string(number), std::int64_t{number});
    TextDictionary notes;
    for (int number = 0; number < count; ++number)
      notes.emplace(DateFormatter("yyyy-MM-dd").string(dayOf(number)), textOf(number));
    store.setDictionary("dayNotes", notes);
  }

  [[nodiscard]] std::filesystem::path file() const { return folder.path() / "defaults.sqlite"; }

  TemporaryFolder folder{std::filesystem::temp_directory_path()};
  VirtualLoop loop;
};

// From the file to notes that can be shown. What closes it again is left out.
void load(benchmark::State& state) {
  StoredNotes stored(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const auto start = SteadyClock::now();
    SqliteDefaultsStore store(stored.file(), stored.loop);
    const NotesStore notes(store);
    benchmark::DoNotOptimize(notes.notes().size());
    state.SetIterationTime(std::chrono::duration<double>(SteadyClock::now() - start).count());
  }
}
BENCHMARK(load)->Arg(0)->Arg(100)->Arg(kMany)->UseManualTime()->Unit(benchmark::kMillisecond);

// A keystroke in one of ten thousand notes.
void setNote(benchmark::State& state) {
  StoredNotes stored(kMany);
  SqliteDefaultsStore store(stored.file(), stored.loop);
  NotesStore notes(store);
  std::vector<double> microseconds;
  std::int64_t number = 0;
  for (auto _ : state) {
    const auto text = textOf(++number);
    const auto start = SteadyClock::now();
    notes.setNote(text, dayOf(number * 7));
    microseconds.push_back(
        std::chrono::duration<double, std::micro>(SteadyClock::now() - start).count());
  }
  std::sort(microseconds.begin(), microseconds.end());
  state.counters["median us"] = microseconds[microseconds.size() / 2];
  state.counters["99th us"] = microseconds[microseconds.size() * 99 / 100];
  state.counters["worst us"] = microseconds.back();
}
BENCHMARK(setNote)->Unit(benchmark::kMicrosecond);

}  // namespace
