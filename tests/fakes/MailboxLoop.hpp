#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <utility>

#include "platform/RunLoop.hpp"

namespace Hilalor {

/// A loop for what real threads post; it has no timers.
class MailboxLoop final : public RunLoop {
 public:
  // RunLoop
  void post(Task task) override {
    const std::lock_guard lock(mutex_);
    posted_.push_back(std::move(task));
    arrived_.notify_one();
  }
  [[nodiscard]] std::unique_ptr<Timer> once(Seconds, Task) override { return nullptr; }
  [[nodiscard]] std::unique_ptr<Timer> repeating(Seconds, Task) override { return nullptr; }
  void after(Seconds, Task) override {}
  void inBackground(BackgroundWork) override {}

  /// Waits for the next task and runs it; false when none comes for a long time.
  bool runNext() {
    std::unique_lock lock(mutex_);
    if (!arrived_.wait_for(lock, std::chrono::seconds(30), [this] { return !posted_.empty(); })) {
      return false;
    }
    const auto task = std::move(posted_.front());
    posted_.pop_front();
    lock.unlock();
    task();
    return true;
  }

 private:
  std::mutex mutex_;
  std::condition_variable arrived_;
  std::deque<Task> posted_;
};

}  // namespace Hilalor
