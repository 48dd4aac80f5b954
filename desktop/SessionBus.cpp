#include "desktop/SessionBus.hpp"

#include <QFileInfo>
#include <QPointer>
#include <chrono>
#include <utility>

namespace Hilalor {
namespace {

constexpr std::chrono::seconds kRetryPeriod{30};

/// A name is used once: Qt keeps a dead connection under it.
QString connectionName(int attempt) {
  return QStringLiteral("hilalor-session-%1").arg(attempt);
}

}  // namespace

bool SessionBus::hasAddress() {
  if (qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")) return true;
  const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
  return !folder.isEmpty() && QFileInfo::exists(folder + QStringLiteral("/bus"));
}

SessionBus::SessionBus(RunLoop& loop) : loop_(loop) {
  connectInBackground();
}

SessionBus::~SessionBus() {
  if (connection_) QDBusConnection::disconnectFromBus(connection_->name());
}

void SessionBus::connectInBackground() {
  const QString name = connectionName(++attempts_);
  loop_.inBackground([bus = QPointer(this), name]() -> RunLoop::Task {
    std::optional<QDBusConnection> connection;
    if (hasAddress()) {
      connection = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
    }
    return [bus, connection] {
      if (bus) bus->use(connection);
    };
  });
}

void SessionBus::openAnother(std::function<void(const QDBusConnection&)> told) {
  const QString name = connectionName(++attempts_);
  loop_.inBackground([name, told = std::move(told)]() -> RunLoop::Task {
    const auto connection = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
    return [connection, told] {
      if (connection.isConnected()) told(connection);
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
  } else {
    retry_ = loop_.once(kRetryPeriod, [this] { connectInBackground(); });
  }
  changed.emit();
}

void SessionBus::lose() {
  if (!connection_) return;
  QDBusConnection::disconnectFromBus(connection_->name());
  connection_.reset();
  retry_ = loop_.once(kRetryPeriod, [this] { connectInBackground(); });
  changed.emit();
}

}  // namespace Hilalor
