#include "desktop/place/NetworkWatch.hpp"

#include <utility>

namespace Hilalor::Desktop {
namespace {

// NetworkManager's number for a way beyond the local network.
constexpr uint kConnectedSite = 60;

// Signals are taken from whoever sends them: who owns the name would have to be waited for, and a
// false word costs one look for the place.
const QString kAnybody;

}  // namespace

NetworkWatch::NetworkWatch(QDBusConnection systemBus, std::function<void()> onReturn)
    : onReturn_(std::move(onReturn)) {
  systemBus.connect(kAnybody, QStringLiteral("/org/freedesktop/NetworkManager"),
                    QStringLiteral("org.freedesktop.NetworkManager"),
                    QStringLiteral("StateChanged"), this, SLOT(managerStateChanged(uint)));
  systemBus.connect(kAnybody, QStringLiteral("/org/freedesktop/network1"),
                    QStringLiteral("org.freedesktop.DBus.Properties"),
                    QStringLiteral("PropertiesChanged"), this,
                    SLOT(networkdChanged(QString, QVariantMap, QStringList)));
}

void NetworkWatch::managerStateChanged(uint state) {
  if (state >= kConnectedSite) onReturn_();
}

void NetworkWatch::networkdChanged(const QString&, const QVariantMap& changed, const QStringList&) {
  const auto state = changed.value(QStringLiteral("OperationalState")).toString();
  if (state == QStringLiteral("routable")) onReturn_();
}

}  // namespace Hilalor::Desktop
