#pragma once

#include <QDBusConnection>
#include <QObject>
#include <functional>
#include <memory>
#include <optional>

#include "platform/RunLoop.hpp"
#include "platform/Signal.hpp"

namespace Hilalor {

/// The user's message bus. Connecting never holds up the main thread; a bus that is not there, or
/// goes away, is looked for twice a minute until it comes. Main thread.
class SessionBus : public QObject {
  Q_OBJECT

 public:
  /// Whether the session says where its bus is. Where it does not, libdbus would start a bus of its
  /// own, which nobody else is on: it must not be asked to connect. Any thread.
  [[nodiscard]] static bool hasAddress();

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

  RunLoop& loop_;
  std::optional<QDBusConnection> connection_;
  bool isSettled_ = false;
  int attempts_ = 0;
  std::unique_ptr<Timer> retry_;
};

}  // namespace Hilalor
