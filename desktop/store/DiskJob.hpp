#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <utility>

#include "desktop/store/DefaultsFile.hpp"

namespace Hilalor::Desktop {

/// Work on a store's file that some thread does, once. Any thread.
class DiskJob {
 public:
  using Work = std::function<DefaultsFile::Outcome()>;

  explicit DiskJob(Work work) : work_(std::move(work)) {}

  /// The work's outcome. Does it here unless it is done; waits where another thread is at it.
  DefaultsFile::Outcome outcome() {
    std::call_once(once_, [this] {
      outcome_ = work_();
      isDone_ = true;
    });
    return outcome_;
  }

  [[nodiscard]] bool isDone() const { return isDone_; }

 private:
  Work work_;
  std::once_flag once_;
  std::atomic<bool> isDone_ = false;
  DefaultsFile::Outcome outcome_ = DefaultsFile::Outcome::refused;
};

}  // namespace Hilalor::Desktop
