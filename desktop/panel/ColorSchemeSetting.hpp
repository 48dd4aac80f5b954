#pragma once

#include <QDBusVariant>
#include <QObject>

#include "desktop/session/SessionBus.hpp"
#include "platform/Signal.hpp"

namespace Hilalor::Desktop {

/// Puts the application into light or dark as the desktop says (the setting "color-scheme" of the
/// portal's namespace "org.freedesktop.appearance"), now and whenever it changes. Without a portal
/// the palette of the desktop's Qt style stays. Asks in the background, again on every new bus.
class ColorSchemeSetting final : public QObject {
  Q_OBJECT

 public:
  /// The bus must outlive the setting.
  explicit ColorSchemeSetting(SessionBus& sessionBus);

 private Q_SLOTS:
  void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

 private:
  void ask();
  static void apply(const QVariant& value);

  SessionBus& sessionBus_;
  Subscription ofBus_;
};

}  // namespace Hilalor::Desktop
