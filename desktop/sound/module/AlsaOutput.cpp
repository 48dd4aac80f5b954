#include "desktop/sound/module/AlsaOutput.hpp"

#include <alsa/asoundlib.h>

#include <chrono>
#include <memory>
#include <span>
#include <thread>
#include <vector>

namespace Hilalor::Desktop {
namespace {

constexpr unsigned kBufferedMicroseconds = 200'000;

// A stop is looked for this often.
constexpr int kWaitMilliseconds = 50;

constexpr std::chrono::milliseconds kDrainPoll{20};

// A card that takes nothing for so many waits hangs.
constexpr int kMostWaits = 200;

struct Close {
  void operator()(snd_pcm_t* pcm) const {
    snd_pcm_drop(pcm);
    snd_pcm_close(pcm);
  }
};

using Pcm = std::unique_ptr<snd_pcm_t, Close>;

[[gnu::format(printf, 5, 6)]] void saysNothing(const char*, int, const char*, int, const char*,
                                               ...) {}

// The library writes what it does not find to the terminal.
void beQuiet() {
  static const int quiet = snd_lib_error_set_handler(saysNothing);
  static_cast<void>(quiet);
}

Pcm openDefault(SoundFormat format) {
  beQuiet();
  snd_pcm_t* opened = nullptr;
  if (snd_pcm_open(&opened, "default", SND_PCM_STREAM_PLAYBACK, SND_PCM_NONBLOCK) < 0) return {};
  Pcm pcm(opened);
  constexpr int kMayResample = 1;
  if (snd_pcm_set_params(opened, SND_PCM_FORMAT_FLOAT, SND_PCM_ACCESS_RW_INTERLEAVED,
                         static_cast<unsigned>(format.channels), static_cast<unsigned>(format.rate),
                         kMayResample, kBufferedMicroseconds) < 0) {
    return {};
  }
  return pcm;
}

/// Writes all the samples, unless the card goes or hangs.
SoundOutput::Outcome write(snd_pcm_t* pcm, std::span<const float> samples, std::size_t channels,
                           const std::stop_token& stop) {
  using Outcome = SoundOutput::Outcome;
  int waits = 0;
  while (!samples.empty() && !stop.stop_requested()) {
    const auto written = snd_pcm_writei(pcm, samples.data(), samples.size() / channels);
    if (written > 0) {
      samples = samples.subspan(static_cast<std::size_t>(written) * channels);
      waits = 0;
    } else if (++waits > kMostWaits) {
      // Where a sound server that was the card is gone, every recovery succeeds and helps nothing.
      return Outcome::unanswered;
    } else if (written == 0 || written == -EAGAIN) {
      snd_pcm_wait(pcm, kWaitMilliseconds);
    } else if (snd_pcm_recover(pcm, static_cast<int>(written), 1) < 0) {
      return Outcome::lost;
    }
  }
  return Outcome::finished;
}

/// Waits until the card has played what it holds.
void drain(snd_pcm_t* pcm, const std::stop_token& stop) {
  // Less than a full buffer does not start by itself.
  if (snd_pcm_state(pcm) == SND_PCM_STATE_PREPARED) snd_pcm_start(pcm);
  snd_pcm_sframes_t held = 0;
  for (int waits = 0; waits < kMostWaits && !stop.stop_requested(); ++waits) {
    if (snd_pcm_state(pcm) != SND_PCM_STATE_RUNNING || snd_pcm_delay(pcm, &held) < 0 || held <= 0) {
      return;
    }
    std::this_thread::sleep_for(kDrainPoll);
  }
}

}  // namespace

SoundOutput::Outcome AlsaOutput::play(SampleSource& source, std::stop_token stop) const {
  const auto pcm = openDefault(source.format());
  if (!pcm) return Outcome::lost;
  const auto channels = static_cast<std::size_t>(source.format().channels);
  std::vector<float> samples(static_cast<std::size_t>(source.format().rate / 20) * channels);
  while (!stop.stop_requested()) {
    const auto frames = source.read(samples);
    if (frames == 0) break;
    const auto outcome =
        write(pcm.get(), std::span(samples).first(frames * channels), channels, stop);
    if (outcome != Outcome::finished) return outcome;
  }
  drain(pcm.get(), stop);
  return Outcome::finished;
}

}  // namespace Hilalor::Desktop
