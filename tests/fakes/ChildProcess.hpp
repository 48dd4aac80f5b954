#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

namespace Hilalor {

/// Runs the body in a process of its own, which may give up its rights or be killed. Its failed
/// expectations are printed there.
class ChildProcess {
 public:
  explicit ChildProcess(const std::function<void()>& body) : id_(fork()) {
    if (id_ != 0) return;
    body();
    _exit(testing::Test::HasFailure() ? 1 : 0);
  }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess() {
    if (id_ > 0) kill();
  }

  void kill() {
    ::kill(id_, SIGKILL);
    (void)exitStatus();
  }

  /// Waits for the end: 0 when the body ran to its end without a failure.
  [[nodiscard]] int exitStatus() {
    int status = -1;
    waitpid(id_, &status, 0);
    id_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  pid_t id_;
};

}  // namespace Hilalor
