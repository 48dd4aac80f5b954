#pragma once

#include <memory>
#include <stop_token>
#include <vector>

#include "desktop/sound/PlaybackThreads.hpp"
#include "desktop/sound/SoundOutput.hpp"
#include "desktop/sound/SoundStream.hpp"
#include "platform/RunLoop.hpp"

namespace Hilalor::Desktop {

/// Where sounds play: each through the first output that takes it and, when that one is lost,
/// through the next, from where it stands. Main thread.
class SoundStage {
 public:
  using Outputs = std::vector<std::unique_ptr<const SoundOutput>>;

  /// When the last of the outputs is lost, the first is tried again, unless it did not answer:
  /// that one is left alone until the next sound. The last always answers.
  SoundStage(RunLoop& loop, Outputs outputs);

  /// Begins to play the stream. `atEnd` runs on the main thread when it was played to its end, and
  /// never when it was stopped before.
  std::stop_source play(std::shared_ptr<SoundStream> stream, RunLoop::Task atEnd = {});

 private:
  PlaybackThreads threads_;
  std::shared_ptr<const Outputs> outputs_;
};

}  // namespace Hilalor::Desktop
