#pragma once

#include <QObject>
#include <QThreadPool>
#include <chrono>
#include <memory>

#include "platform/RunLoop.hpp"

namespace Hilalor::Desktop {

/// The loop of the Qt application, which must exist by the time it runs. Timers are exact to the
/// millisecond, never early and never drift: a 30-second timer falls into every minute. They do
/// not count the time a machine sleeps. What is still waiting when the loop object goes is dropped.
class QtRunLoop : public RunLoop {
 public:
  QtRunLoop();
  ~QtRunLoop() override;

  void post(Task task) override;
  [[nodiscard]] std::unique_ptr<Timer> once(Seconds delay, Task task) override;
  [[nodiscard]] std::unique_ptr<Timer> repeating(Seconds period, Task task) override;
  void after(Seconds delay, Task task) override;
  void inBackground(BackgroundWork work) override;

  /// Ends the work on other threads before what it uses goes: waits for what has begun, and drops
  /// the rest, the answers and all that was posted. False when something still works after that
  /// time; nothing it uses may then go.
  [[nodiscard]] bool endBackgroundWork(std::chrono::milliseconds patience);

 private:
  /// Receives everything that is queued for the main thread.
  QObject mainThread_;
  QThreadPool background_;
};

}  // namespace Hilalor::Desktop
