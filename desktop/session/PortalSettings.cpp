#include "desktop/session/PortalSettings.hpp"

#include <QDBusMessage>
#include <QDBusPendingReply>
#include <utility>

#include "desktop/session/BusCall.hpp"

namespace Hilalor::Desktop {
namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");

/// Some portals wrap the value once more.
QVariant unwrapped(const QVariant& value) {
  const bool isWrapped = value.metaType() == QMetaType::fromType<QDBusVariant>();
  return isWrapped ? unwrapped(value.value<QDBusVariant>().variant()) : value;
}

}  // namespace

PortalSettings::PortalSettings(SessionBus& sessionBus)
    : sessionBus_(sessionBus), ofBus_(sessionBus.changed.subscribe([this] { listen(); })) {
  // Qt finds no slot with a parameter whose type it does not know by name.
  qRegisterMetaType<QDBusVariant>();
  listen();
}

void PortalSettings::watch(Key key, Told told) {
  ask(watched_.emplace_back(std::move(key), std::move(told)).first);
}

void PortalSettings::listen() {
  auto bus = sessionBus_.connection();
  if (!bus) return;
  bus->connect(kService, kPath, kInterface, QStringLiteral("SettingChanged"), this,
               SLOT(settingChanged(QString, QString, QDBusVariant)));
  for (const auto& [key, told] : watched_)
    ask(key);
}

void PortalSettings::ask(const Key& key) {
  auto bus = sessionBus_.connection();
  if (!bus) return;
  auto read = QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Read"));
  read << key.group << key.name;
  whenAnswered(bus->asyncCall(read), this, [this, key](const QDBusPendingCall& answer) {
    const QDBusPendingReply<QDBusVariant> reply = answer;
    if (!reply.isError()) tell(key, reply.value().variant());
  });
}

void PortalSettings::settingChanged(const QString& group, const QString& name,
                                    const QDBusVariant& value) {
  tell({group, name}, value.variant());
}

void PortalSettings::tell(const Key& key, const QVariant& value) const {
  for (const auto& [watched, told] : watched_)
    if (watched == key) told(unwrapped(value));
}

}  // namespace Hilalor::Desktop
