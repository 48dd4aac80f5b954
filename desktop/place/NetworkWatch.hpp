#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>
#include <functional>

namespace Hilalor::Desktop {

/// Tells when the machine comes back to a network beyond its own, as NetworkManager or
/// systemd-networkd says on the system bus. Where there is neither, it never does. Main thread.
class NetworkWatch final : public QObject {
  Q_OBJECT

 public:
  NetworkWatch(QDBusConnection systemBus, std::function<void()> onReturn);

 private Q_SLOTS:
  void managerStateChanged(uint state);
  void networkdChanged(const QString& interface, const QVariantMap& changed,
                       const QStringList& invalidated);

 private:
  std::function<void()> onReturn_;
};

}  // namespace Hilalor::Desktop
