#include "desktop/sound/SilentOutput.hpp"

#include <condition_variable>
#include <mutex>
#include <utility>
#include <vector>

namespace Hilalor::Desktop {
namespace {

constexpr int kSecondsAtOnce = 2;

void waitByTheClock(Seconds span, std::stop_token stop) {
  std::mutex mutex;
  std::unique_lock lock(mutex);
  std::condition_variable_any never;
  never.wait_for(lock, std::move(stop), span, [] { return false; });
}

}  // namespace

SilentOutput::SilentOutput() : SilentOutput(waitByTheClock) {}

SilentOutput::SilentOutput(Wait wait) : wait_(std::move(wait)) {}

SoundOutput::Outcome SilentOutput::play(SampleSource& source, std::stop_token stop) const {
  const auto [rate, channels] = source.format();
  std::vector<float> second(static_cast<std::size_t>(rate * channels));
  for (int i = 0; i < kSecondsAtOnce && !stop.stop_requested(); ++i) {
    const auto frames = source.read(second);
    wait_(Seconds(static_cast<double>(frames) / rate), stop);
    if (frames < static_cast<std::size_t>(rate)) return Outcome::finished;
  }
  return stop.stop_requested() ? Outcome::finished : Outcome::lost;
}

}  // namespace Hilalor::Desktop
