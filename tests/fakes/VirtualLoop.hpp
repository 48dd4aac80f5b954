#pragma once

#include <deque>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "platform/Clock.hpp"
#include "platform/RunLoop.hpp"

namespace Hilalor {

/// A loop and a clock that jump from timer to timer: a simulated year costs what its ticks cost.
/// Background work runs at once, or when asked for; its answer comes on the next pass as always.
class VirtualLoop final : public RunLoop, public Clock {
 public:
  explicit VirtualLoop(Date start = {0}) : start_(start) {}

  // Clock
  [[nodiscard]] Date now() const override { return start_ + elapsed_; }

  /// Sets the wall clock; timers go on counting as before.
  void setClock(Date now) { start_ = now - elapsed_; }

  // RunLoop
  void post(Task task) override { posted_.push_back(std::move(task)); }

  [[nodiscard]] std::unique_ptr<Timer> once(Seconds delay, Task task) override {
    return std::make_unique<Handle>(schedule(delay, Seconds(0), std::move(task)));
  }

  [[nodiscard]] std::unique_ptr<Timer> repeating(Seconds period, Task task) override {
    return std::make_unique<Handle>(schedule(period, period, std::move(task)));
  }

  void after(Seconds delay, Task task) override {
    detached_.push_back(schedule(delay, Seconds(0), std::move(task)));
  }

  void inBackground(BackgroundWork work) override {
    background_.push_back(std::move(work));
    if (!holdsBackground_) runBackground();
  }

  /// Keeps background work back until `runBackground`.
  void holdBackground() { holdsBackground_ = true; }

  void runBackground() {
    while (!background_.empty()) {
      const auto work = std::move(background_.front());
      background_.pop_front();
      if (auto answer = work()) post(std::move(answer));
    }
  }

  /// Runs what was posted, and what that posts, until nothing is left.
  void runPosted() {
    while (!posted_.empty()) {
      const auto task = std::move(posted_.front());
      posted_.pop_front();
      task();
    }
  }

  /// Lets that much time pass, running every timer at its moment.
  void advance(Seconds span) {
    const Seconds end = elapsed_ + span;
    runPosted();
    while (!due_.empty() && due_.begin()->first.first <= end) {
      const auto entry = due_.begin();
      elapsed_ = entry->first.first;
      const auto timer = entry->second.lock();
      due_.erase(entry);
      if (timer) fire(timer);
      runPosted();
    }
    elapsed_ = end;
  }

 private:
  struct Scheduled {
    Seconds period{0};
    Task task;
  };

  struct Handle final : Timer {
    explicit Handle(std::shared_ptr<Scheduled> timer) : scheduled(std::move(timer)) {}
    std::shared_ptr<Scheduled> scheduled;
  };

  std::shared_ptr<Scheduled> schedule(Seconds delay, Seconds period, Task task) {
    auto timer = std::make_shared<Scheduled>(Scheduled{period, std::move(task)});
    due_.emplace(std::pair(elapsed_ + delay, next_++), timer);
    return timer;
  }

  void fire(const std::shared_ptr<Scheduled>& timer) {
    if (timer->period > Seconds(0)) {
      due_.emplace(std::pair(elapsed_ + timer->period, next_++), timer);
    }
    timer->task();
    std::erase(detached_, timer);
  }

  Date start_;
  Seconds elapsed_{0};
  std::uint64_t next_ = 0;
  std::map<std::pair<Seconds, std::uint64_t>, std::weak_ptr<Scheduled>> due_;
  std::deque<Task> posted_;
  std::deque<BackgroundWork> background_;
  std::vector<std::shared_ptr<Scheduled>> detached_;
  bool holdsBackground_ = false;
};

}  // namespace Hilalor
