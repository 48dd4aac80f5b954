#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <list>
#include <memory>
#include <stop_token>
#include <thread>

#include "platform/RunLoop.hpp"

namespace Hilalor::Desktop {

/// One thread for each sound that plays, gone soon after the sound has ended. Main thread.
class PlaybackThreads {
 public:
  using Work = std::function<void(std::stop_token)>;

  /// At the end work is waited for no longer than `patience`.
  explicit PlaybackThreads(RunLoop& loop,
                           std::chrono::milliseconds patience = std::chrono::seconds(2));

  /// Asks all work to stop and waits for it; what hangs in a device is left behind.
  ~PlaybackThreads();
  PlaybackThreads(const PlaybackThreads&) = delete;
  PlaybackThreads& operator=(const PlaybackThreads&) = delete;

  /// Runs the work on a thread of its own and, unless it was asked to stop, `atEnd` on the main
  /// thread after it. The work shares what it uses: it may outlive this object.
  std::stop_source start(Work work, RunLoop::Task atEnd);

  /// Threads that still run or wait to be cleared away.
  [[nodiscard]] std::size_t count() const { return threads_.size(); }

 private:
  struct Shared;
  using Threads = std::list<std::jthread>;

  RunLoop& loop_;
  std::chrono::milliseconds patience_;
  Threads threads_;
  std::shared_ptr<Shared> shared_;
};

}  // namespace Hilalor::Desktop
