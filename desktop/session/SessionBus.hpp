#pragma once

#include <QDBusConnection>
#include <QObject>
#include <functional>
#include <memory>
#include <optional>

#include "platform/RunLoop.hpp"
#include "platform/Signal.hpp"

namespace Hilalor::Desktop {

/// The user's message bus. Connecting never holds up the main thread. A bus that goes away is
/// looked for at once, then less and less often, and at last, as one that is not there or does not
/// answer, twice a minute until it comes. Main thread.
class SessionBus : public QObject {
  Q_OBJECT

 public:
  /// Starts to connect. The loop must outlive the bus.
  explicit SessionBus(RunLoop& loop);
  ~SessionBus() override;

  /// None while there is no bus.
  [[nodiscard]] const std::optional<QDBusConnection>& connection() const { return connection_; }

  /// Opens one more connection to the bus, for what must be able to leave the bus by itself. Told
  /// on the main thread, unless there is no bus. Who is told closes it
  /// (QDBusConnection::disconnectFromBus).
  void openAnother(std::function<void(const QDBusConnection&)> told);

  /// Whether the first attempt to connect has ended, well or not.
  [[nodiscard]] bool isSettled() const { return isSettled_; }

  /// The first attempt has ended, or the connection has come or gone. What was exported on or
  /// watched through an earlier connection is gone with it.
  Signal<> changed;

 private Q_SLOTS:
  void lose();

 private:
  void connectInBackground();
  void use(const std::optional<QDBusConnection>& connection);
  void tryLater();

  RunLoop& loop_;
  std::optional<QDBusConnection> connection_;
  bool isSettled_ = false;
  int attempts_ = 0;
  Seconds retryDelay_;
  std::unique_ptr<Timer> retry_;
};

}  // namespace Hilalor::Desktop
