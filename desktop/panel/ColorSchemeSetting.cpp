#include "desktop/panel/ColorSchemeSetting.hpp"

#include <QApplication>
#include <QDBusMessage>
#include <QDBusPendingReply>

#include "desktop/session/BusCall.hpp"
#include "ui/Colors.hpp"

namespace Hilalor::Desktop {
namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString kGroup = QStringLiteral("org.freedesktop.appearance");
const QString kKey = QStringLiteral("color-scheme");

// The portal's values; 0 is no preference.
constexpr uint kPrefersDark = 1;
constexpr uint kPrefersLight = 2;

}  // namespace

ColorSchemeSetting::ColorSchemeSetting(SessionBus& sessionBus)
    : sessionBus_(sessionBus), ofBus_(sessionBus.changed.subscribe([this] { ask(); })) {
  // Qt finds no slot with a parameter whose type it does not know by name.
  qRegisterMetaType<QDBusVariant>();
  ask();
}

void ColorSchemeSetting::ask() {
  auto bus = sessionBus_.connection();
  if (!bus) return;
  bus->connect(kService, kPath, kInterface, QStringLiteral("SettingChanged"), this,
               SLOT(settingChanged(QString, QString, QDBusVariant)));
  QDBusMessage read =
      QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Read"));
  read << kGroup << kKey;
  whenAnswered(bus->asyncCall(read), this, [](const QDBusPendingCall& answer) {
    const QDBusPendingReply<QDBusVariant> reply = answer;
    if (!reply.isError()) apply(reply.value().variant());
  });
}

void ColorSchemeSetting::settingChanged(const QString& group, const QString& key,
                                        const QDBusVariant& value) {
  if (group == kGroup && key == kKey) apply(value.variant());
}

void ColorSchemeSetting::apply(const QVariant& value) {
  // Some portals wrap the value once more.
  const QVariant plain = value.canConvert<QDBusVariant>() && !value.canConvert<uint>()
                             ? value.value<QDBusVariant>().variant()
                             : value;
  switch (plain.toUInt()) {
    case kPrefersDark:
      QApplication::setPalette(Ui::windowPalette(Ui::ColorScheme::dark));
      break;
    case kPrefersLight:
      QApplication::setPalette(Ui::windowPalette(Ui::ColorScheme::light));
      break;
    default:
      QApplication::setPalette(QPalette());
      break;
  }
}

}  // namespace Hilalor::Desktop
