#pragma once

#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <QVariant>
#include <functional>
#include <vector>

#include "desktop/session/SessionBus.hpp"
#include "platform/Signal.hpp"

namespace Hilalor::Desktop {

/// The settings that the desktop's portal tells to programs. Asks in the background, again on every
/// new bus. Main thread.
class PortalSettings final : public QObject {
  Q_OBJECT

 public:
  /// The bus must outlive the settings.
  explicit PortalSettings(SessionBus& sessionBus);

  struct Key {
    QString group;
    QString name;
    friend bool operator==(const Key&, const Key&) = default;
  };
  using Told = std::function<void(const QVariant& value)>;

  /// Tells the setting's value once it is known, and whenever it changes. A setting that the
  /// desktop does not have is never told.
  void watch(Key key, Told told);

 private Q_SLOTS:
  void settingChanged(const QString& group, const QString& name, const QDBusVariant& value);

 private:
  void listen();
  void ask(const Key& key);
  void tell(const Key& key, const QVariant& value) const;

  SessionBus& sessionBus_;
  std::vector<std::pair<Key, Told>> watched_;
  Subscription ofBus_;
};

}  // namespace Hilalor::Desktop
