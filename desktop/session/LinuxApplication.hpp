#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QSocketNotifier>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

#include "desktop/session/SessionBus.hpp"
#include "desktop/session/SleepWatch.hpp"
#include "platform/Application.hpp"
#include "platform/Signal.hpp"

namespace Hilalor::Desktop {

/// The program on the session bus and among the processes: one copy a session, ended by SIGTERM,
/// SIGINT, SIGHUP and the end of the session with status 0. An end that got stuck is over after
/// half a minute, and by a second SIGTERM or SIGINT at once. Needs a QApplication. Main thread.
class LinuxApplication final : public QObject, public Application {
  Q_OBJECT

 public:
  LinuxApplication();
  ~LinuxApplication() override;

  /// How long a copy that has the name, but does not answer, is waited for.
  static constexpr std::chrono::seconds kPatienceWithAnother{10};

  /// Takes the program's name on the session bus. False when another copy has it; that copy was
  /// then asked to show itself. One that is ending is waited for, however long that takes it. True
  /// where there is no session bus to ask.
  [[nodiscard]] bool becomeTheRunningCopy(std::chrono::seconds patienceWithAnother);

  /// Takes the name again when the bus was lost and another has come. Should a copy have started
  /// in between, this one ends. The bus must live as long as its changes are to be heard.
  void remainTheRunningCopy(SessionBus& sessionBus);

  /// Hears of the machine's waking on that bus: the one before was none.
  void useSystemBus(const QDBusConnection& bus);

  /// Runs when the display goes from under the program, which ends then and destroys nothing. The
  /// display may not be used any more.
  static void setLostDisplayHandler(std::function<void()> handler);

  // Application
  void terminate() override;
  void setReopenHandler(std::function<void()> handler) override;
  void setSettingsHandler(std::function<void()> handler) override;
  void setResumeHandler(std::function<void()> handler) override;

 private:
  void act(const QString& action);
  void takeNameOn(QDBusConnection bus);
  void endOnSignals();

  std::optional<QDBusConnection> named_;  // Where the name is, or was asked for, last.
  Subscription ofBus_;
  std::function<void()> reopen_;
  std::function<void()> openSettings_;
  std::function<void()> resume_;
  std::unique_ptr<SleepWatch> sleepWatch_;
  std::unique_ptr<QSocketNotifier> signalNotifier_;
};

}  // namespace Hilalor::Desktop
