#pragma once

#include <QDBusVariant>
#include <QObject>

namespace Hilalor {

/// Puts the application into light or dark as the desktop says (the setting "color-scheme" of the
/// portal's namespace "org.freedesktop.appearance"), now and whenever it changes. Without a portal
/// the palette of the desktop's Qt style stays. Asks in the background.
class ColorSchemeSetting final : public QObject {
  Q_OBJECT

 public:
  ColorSchemeSetting();

 private Q_SLOTS:
  void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

 private:
  static void apply(const QVariant& value);
};

}  // namespace Hilalor
