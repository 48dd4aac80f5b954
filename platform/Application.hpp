#pragma once

#include <functional>

namespace Hilalor {

/// The running program as the desktop knows it. Main thread.
class Application {
 public:
  virtual ~Application() = default;

  /// Ends the event loop, and with it the program, with status 0.
  virtual void terminate() = 0;

  /// Called when the user starts the program a second time: the new copy ends, this one shows
  /// itself.
  virtual void setReopenHandler(std::function<void()> handler) = 0;

  /// Called when the user asks for the settings from outside the program.
  virtual void setSettingsHandler(std::function<void()> handler) = 0;

  /// Called when the machine wakes from its sleep, where the desktop tells. Timers did not count
  /// the time it slept.
  virtual void setResumeHandler(std::function<void()> handler) = 0;
};

}  // namespace Hilalor
