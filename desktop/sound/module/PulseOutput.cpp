#include "desktop/sound/module/PulseOutput.hpp"

#include <pulse/pulseaudio.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "desktop/process/ProgramId.hpp"

namespace Hilalor::Desktop {
namespace {

using Clock = std::chrono::steady_clock;

// A server that is there answers at once; one that was just started may take a second.
constexpr std::chrono::seconds kAnswersWithin{3};

// Nothing is taken for longer than this only by a server that hangs.
constexpr std::chrono::seconds kTakesWithin{10};

// What the server holds of the sound: the most that is still heard when its connection breaks.
constexpr pa_usec_t kBuffered = 200 * PA_USEC_PER_MSEC;

struct Release {
  void operator()(pa_mainloop* loop) const { pa_mainloop_free(loop); }
  void operator()(pa_context* context) const {
    pa_context_disconnect(context);
    pa_context_unref(context);
  }
  void operator()(pa_stream* stream) const {
    pa_stream_disconnect(stream);
    pa_stream_unref(stream);
  }
  void operator()(pa_operation* operation) const { pa_operation_unref(operation); }
  void operator()(pa_proplist* list) const { pa_proplist_free(list); }
};

template <typename Handle>
using Owned = std::unique_ptr<Handle, Release>;

enum class Progress { made, stopped, lost, late };

/// One connection to the server, with one sound on it.
class Connection {
 public:
  explicit Connection(std::stop_token stop)
      : stop_(std::move(stop)),
        loop_(pa_mainloop_new()),
        wakeAtStop_(stop_, [loop = loop_.get()] { pa_mainloop_wakeup(loop); }) {}

  [[nodiscard]] Progress open(SoundFormat format) {
    const Owned<pa_proplist> properties(pa_proplist_new());
    pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_NAME, "Hilalor");
    pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_ICON_NAME, kProgramId);
    context_.reset(
        pa_context_new_with_proplist(pa_mainloop_get_api(loop_.get()), nullptr, properties.get()));
    // A server that would have to be started first is not the user's.
    if (pa_context_connect(context_.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) {
      return Progress::lost;
    }
    const auto connected =
        runUntil([this] { return pa_context_get_state(context_.get()) == PA_CONTEXT_READY; },
                 kAnswersWithin);
    return connected == Progress::made ? openStream(format) : connected;
  }

  /// Sends the whole source.
  [[nodiscard]] Progress send(SampleSource& source) {
    const auto frameBytes = pa_frame_size(pa_stream_get_sample_spec(stream_.get()));
    std::vector<float> samples;
    while (true) {
      const auto room = runUntil(
          [&] { return pa_stream_writable_size(stream_.get()) >= frameBytes; }, kTakesWithin);
      if (room != Progress::made) return room;
      const auto wanted = pa_stream_writable_size(stream_.get()) / frameBytes;
      samples.resize(wanted * frameBytes / sizeof(float));
      const auto frames = source.read(samples);
      if (frames == 0) return Progress::made;
      if (pa_stream_write(stream_.get(), samples.data(), frames * frameBytes, nullptr, 0,
                          PA_SEEK_RELATIVE) < 0) {
        return Progress::lost;
      }
    }
  }

  /// Waits until the last sample was heard.
  [[nodiscard]] Progress drain() {
    const Owned<pa_operation> drained(pa_stream_drain(
        stream_.get(), [](pa_stream*, int, void*) {}, nullptr));
    if (!drained) return Progress::lost;
    return runUntil([&] { return pa_operation_get_state(drained.get()) != PA_OPERATION_RUNNING; },
                    kTakesWithin);
  }

 private:
  [[nodiscard]] Progress openStream(SoundFormat format) {
    const pa_sample_spec spec{PA_SAMPLE_FLOAT32NE, static_cast<std::uint32_t>(format.rate),
                              static_cast<std::uint8_t>(format.channels)};
    stream_.reset(pa_stream_new(context_.get(), "Hilalor", &spec, nullptr));
    if (!stream_) return Progress::lost;
    constexpr auto kServersChoice = static_cast<std::uint32_t>(-1);
    // Left to itself the server may ask for seconds of sound at once.
    const pa_buffer_attr buffer{kServersChoice,
                                static_cast<std::uint32_t>(pa_usec_to_bytes(kBuffered, &spec)),
                                kServersChoice, kServersChoice, kServersChoice};
    if (pa_stream_connect_playback(stream_.get(), nullptr, &buffer, PA_STREAM_ADJUST_LATENCY,
                                   nullptr, nullptr) < 0) {
      return Progress::lost;
    }
    return runUntil([this] { return pa_stream_get_state(stream_.get()) == PA_STREAM_READY; },
                    kAnswersWithin);
  }

  template <typename Condition>
  [[nodiscard]] Progress runUntil(Condition isMet, Clock::duration limit) {
    const auto end = Clock::now() + limit;
    while (!isMet()) {
      if (stop_.stop_requested()) return Progress::stopped;
      const auto left = std::chrono::duration_cast<std::chrono::microseconds>(end - Clock::now());
      if (!isAlive()) return Progress::lost;
      if (left.count() <= 0) return Progress::late;
      if (pa_mainloop_prepare(loop_.get(), static_cast<int>(left.count())) < 0 ||
          pa_mainloop_poll(loop_.get()) < 0 || pa_mainloop_dispatch(loop_.get()) < 0) {
        return Progress::lost;
      }
    }
    return stop_.stop_requested() ? Progress::stopped : isAlive() ? Progress::made : Progress::lost;
  }

  [[nodiscard]] bool isAlive() const {
    return PA_CONTEXT_IS_GOOD(pa_context_get_state(context_.get())) &&
           (!stream_ || PA_STREAM_IS_GOOD(pa_stream_get_state(stream_.get())));
  }

  std::stop_token stop_;
  Owned<pa_mainloop> loop_;
  Owned<pa_context> context_;
  Owned<pa_stream> stream_;
  std::stop_callback<std::function<void()>> wakeAtStop_;
};

}  // namespace

SoundOutput::Outcome PulseOutput::play(SampleSource& source, std::stop_token stop) const {
  Connection connection(std::move(stop));
  auto progress = connection.open(source.format());
  if (progress == Progress::made) progress = connection.send(source);
  if (progress == Progress::made) progress = connection.drain();
  switch (progress) {
    case Progress::lost:
      return Outcome::lost;
    case Progress::late:
      return Outcome::unanswered;
    case Progress::made:
    case Progress::stopped:
      break;
  }
  return Outcome::finished;
}

}  // namespace Hilalor::Desktop
