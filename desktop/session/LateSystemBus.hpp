#pragma once

#include <QDBusConnection>
#include <functional>
#include <memory>
#include <optional>

#include "platform/Lifetime.hpp"
#include "platform/RunLoop.hpp"

namespace Hilalor::Desktop {

/// The machine's message bus where it did not answer as the program started, which Qt then never
/// asks again. Looks for it after half a minute, and then less and less often, until it answers.
/// Main thread.
class LateSystemBus {
 public:
  /// `onFound` is told the connection, once. The loop must outlive the bus.
  LateSystemBus(RunLoop& loop, std::function<void(const QDBusConnection&)> onFound);
  LateSystemBus(const LateSystemBus&) = delete;
  LateSystemBus& operator=(const LateSystemBus&) = delete;
  ~LateSystemBus();

 private:
  void lookLater();
  void take(const std::optional<QDBusConnection>& connection);

  RunLoop& loop_;
  std::function<void(const QDBusConnection&)> onFound_;
  Seconds delay_;
  std::unique_ptr<Timer> next_;
  Lifetime lifetime_;
};

}  // namespace Hilalor::Desktop
