#pragma once

namespace Hilalor {

/// Looks for newer releases of the program, in the background and on request. Main thread.
class Updater {
 public:
  virtual ~Updater() = default;

  /// Begins to look from time to time.
  virtual void start() = 0;

  /// Looks now, because the user asked.
  virtual void checkForUpdates() = 0;
};

}  // namespace Hilalor
