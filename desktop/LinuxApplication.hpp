#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <functional>
#include <memory>

#include "platform/Application.hpp"

namespace Hilalor {

/// The program on the session bus and among the processes: one copy a session, ended by SIGTERM,
/// SIGINT, SIGHUP and the end of the session with status 0. Needs a QApplication. Main thread.
class LinuxApplication final : public QObject, public Application {
  Q_OBJECT

 public:
  LinuxApplication();
  ~LinuxApplication() override;

  /// Takes the program's name on the session bus. False when another copy has it; that copy was
  /// then asked to show itself. True where there is no session bus to ask.
  [[nodiscard]] bool becomeTheRunningCopy();

  // Application
  void terminate() override;
  void setReopenHandler(std::function<void()> handler) override;

 private:
  void endOnSignals();

  std::function<void()> reopen_;
  std::unique_ptr<QSocketNotifier> signalNotifier_;
};

}  // namespace Hilalor
