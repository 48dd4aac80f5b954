#include "desktop/sound/PlaybackThreads.hpp"

#include <condition_variable>
#include <mutex>
#include <utility>

#include "desktop/process/Heap.hpp"

namespace Hilalor::Desktop {

/// What the threads know of their owner.
struct PlaybackThreads::Shared {
  std::mutex mutex;
  std::condition_variable oneEnded;
  int running = 0;
  PlaybackThreads* owner = nullptr;  // null once it is gone
};

PlaybackThreads::PlaybackThreads(RunLoop& loop, std::chrono::milliseconds patience)
    : loop_(loop), patience_(patience), shared_(std::make_shared<Shared>()) {
  shared_->owner = this;
}

PlaybackThreads::~PlaybackThreads() {
  for (auto& thread : threads_)
    thread.request_stop();
  std::unique_lock lock(shared_->mutex);
  shared_->owner = nullptr;
  const bool allEnded =
      shared_->oneEnded.wait_for(lock, patience_, [this] { return shared_->running == 0; });
  lock.unlock();
  if (allEnded) return;
  for (auto& thread : threads_)
    thread.detach();
}

std::stop_source PlaybackThreads::start(Work work, RunLoop::Task atEnd) {
  {
    const std::lock_guard lock(shared_->mutex);
    ++shared_->running;
  }
  const auto place = threads_.emplace(threads_.end());
  const auto clearAway = [shared = shared_, place, atEnd = std::move(atEnd)] {
    // On the main thread, like the owner's end.
    if (shared->owner == nullptr) return;
    const bool stopped = place->get_stop_source().stop_requested();
    place->join();
    shared->owner->threads_.erase(place);
    giveBackFreeMemory();
    if (!stopped && atEnd) atEnd();
  };
  *place = std::jthread(
      [shared = shared_, work = std::move(work), clearAway](const std::stop_token& stop) mutable {
        work(stop);
        // Whatever the work holds goes here, not on the main thread.
        work = nullptr;
        const std::lock_guard lock(shared->mutex);
        if (shared->owner != nullptr) shared->owner->loop_.post(clearAway);
        --shared->running;
        shared->oneEnded.notify_all();
      });
  return place->get_stop_source();
}

}  // namespace Hilalor::Desktop
