#include "desktop/session/LateSystemBus.hpp"

#include <QString>
#include <chrono>
#include <utility>

#include "desktop/session/BusProbe.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr Seconds kFirstDelay{30};
constexpr std::chrono::seconds kPatience{2};
const QString kConnection = QStringLiteral("hilalor-system");

std::optional<QDBusConnection> connectInTime() {
  const auto address = systemBusAddress();
  if (!busAnswers(address, kPatience)) return std::nullopt;
  return QDBusConnection::connectToBus(QString::fromStdString(address), kConnection);
}

}  // namespace

LateSystemBus::LateSystemBus(RunLoop& loop, std::function<void(const QDBusConnection&)> onFound)
    : loop_(loop), onFound_(std::move(onFound)), delay_(kFirstDelay) {
  lookLater();
}

LateSystemBus::~LateSystemBus() {
  QDBusConnection::disconnectFromBus(kConnection);
}

void LateSystemBus::lookLater() {
  const auto told = lifetime_.whileAlive(
      [this](const std::optional<QDBusConnection>& connection) { take(connection); });
  next_ = loop_.once(delay_, [this, told] {
    loop_.inBackground([told]() -> RunLoop::Task {
      return [told, connection = connectInTime()] { told(connection); };
    });
  });
  delay_ = delay_ * 2;
}

void LateSystemBus::take(const std::optional<QDBusConnection>& connection) {
  if (connection && connection->isConnected()) return onFound_(*connection);
  // Qt keeps a dead connection under its name.
  QDBusConnection::disconnectFromBus(kConnection);
  lookLater();
}

}  // namespace Hilalor::Desktop
