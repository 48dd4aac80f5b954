#pragma once

#include <memory>
#include <utility>

#include "platform/RunLoop.hpp"

namespace Hilalor {

/// A place for the latest of several timers. An earlier one still runs out when a later one takes
/// its place. Only `invalidate` ends a timer, and only the latest. Main thread.
class OneShotTimer {
 public:
  void schedule(RunLoop& loop, Seconds delay, RunLoop::Task task) {
    task_ = std::make_shared<RunLoop::Task>(std::move(task));
    loop.after(delay, [task = task_] {
      if (const auto due = std::exchange(*task, nullptr)) due();
    });
  }

  void invalidate() {
    if (task_) *task_ = nullptr;
    task_.reset();
  }

 private:
  std::shared_ptr<RunLoop::Task> task_;
};

}  // namespace Hilalor
