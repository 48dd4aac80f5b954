#include "desktop/session/SessionBus.hpp"

#include <QPointer>
#include <algorithm>
#include <chrono>
#include <utility>

#include "desktop/session/BusProbe.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr Seconds kFirstRetry{0.1};
constexpr Seconds kLongestRetry{30};
/// Qt would wait much longer, and keep all its connections waiting.
constexpr std::chrono::seconds kPatience{2};

/// A name is used once: Qt keeps a dead connection under it.
QString connectionName(int attempt) {
  return QStringLiteral("hilalor-session-%1").arg(attempt);
}

/// Where the session does not say where its bus is, the library would start one of its own, which
/// nobody else is on.
std::optional<QDBusConnection> connectTo(const QString& name) {
  const auto address = sessionBusAddress();
  if (address.empty() || !busAnswers(address, kPatience)) return std::nullopt;
  return QDBusConnection::connectToBus(QString::fromStdString(address), name);
}

}  // namespace

SessionBus::SessionBus(RunLoop& loop) : loop_(loop), retryDelay_(kLongestRetry) {
  connectInBackground();
}

SessionBus::~SessionBus() {
  if (connection_) QDBusConnection::disconnectFromBus(connection_->name());
}

void SessionBus::connectInBackground() {
  const QString name = connectionName(++attempts_);
  loop_.inBackground([bus = QPointer(this), name]() -> RunLoop::Task {
    return [bus, connection = connectTo(name)] {
      if (bus) bus->use(connection);
    };
  });
}

void SessionBus::openAnother(std::function<void(const QDBusConnection&)> told) {
  const QString name = connectionName(++attempts_);
  loop_.inBackground([name, told = std::move(told)]() -> RunLoop::Task {
    return [connection = connectTo(name), told] {
      if (connection && connection->isConnected()) told(*connection);
    };
  });
}

void SessionBus::use(const std::optional<QDBusConnection>& connection) {
  isSettled_ = true;
  if (connection && connection->isConnected()) {
    connection_ = connection;
    connection_->connect({}, QStringLiteral("/org/freedesktop/DBus/Local"),
                         QStringLiteral("org.freedesktop.DBus.Local"),
                         QStringLiteral("Disconnected"), this, SLOT(lose()));
    // It may have gone before that was heard.
    if (!connection_->isConnected()) return lose();
  } else {
    tryLater();
  }
  changed.emit();
}

void SessionBus::tryLater() {
  retry_ = loop_.once(retryDelay_, [this] { connectInBackground(); });
  retryDelay_ = std::min(retryDelay_ * 2, kLongestRetry);
}

void SessionBus::lose() {
  if (!connection_) return;
  QDBusConnection::disconnectFromBus(connection_->name());
  connection_.reset();
  retryDelay_ = kFirstRetry;
  tryLater();
  changed.emit();
}

}  // namespace Hilalor::Desktop
