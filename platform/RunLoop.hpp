#pragma once

#include <functional>
#include <memory>

#include "datetime/Date.hpp"

namespace Hilalor {

/// A timer that runs for as long as its handle lives. An empty handle is no timer.
class Timer {
 public:
  virtual ~Timer() = default;
};

/// The main thread's loop. It runs everything on the main thread, except the work given to
/// `inBackground`. Only `post` may be called from other threads.
class RunLoop {
 public:
  using Task = std::function<void()>;

  /// Work for another thread, which answers with what the main thread is to do about its outcome
  /// (nothing, if that is empty). It must not touch what the main thread uses.
  using BackgroundWork = std::function<Task()>;

  virtual ~RunLoop() = default;

  /// Runs the task on a later pass of the loop, after those posted before it. Any thread.
  virtual void post(Task task) = 0;

  /// Runs the task once after the delay, unless the handle is dropped first.
  [[nodiscard]] virtual std::unique_ptr<Timer> once(Seconds delay, Task task) = 0;

  /// Runs the task after every period, the first time a period from now, until the handle is
  /// dropped. Passes that were missed (the machine asleep) are not caught up.
  [[nodiscard]] virtual std::unique_ptr<Timer> repeating(Seconds period, Task task) = 0;

  /// Runs the task once after the delay; nothing takes it back.
  virtual void after(Seconds delay, Task task) = 0;

  /// Runs the work on another thread at user-initiated priority and its answer on the main thread.
  virtual void inBackground(BackgroundWork work) = 0;
};

}  // namespace Hilalor
