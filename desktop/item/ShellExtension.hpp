#pragma once

#include <QDBusServiceWatcher>
#include <QObject>
#include <memory>

#include "desktop/session/SessionBus.hpp"

namespace Hilalor::Desktop {

/// Our own extension of GNOME Shell (packaging/gnome-shell), as it comes and goes. While it is
/// there it shows the item, and nothing else needs to.
class ShellExtension : public QObject {
 public:
  /// The bus must outlive this.
  explicit ShellExtension(SessionBus& bus);

  [[nodiscard]] bool isThere() const { return isThere_; }

  [[nodiscard]] SessionBus& bus() { return bus_; }

  /// Told when it has come or gone; one that is another one goes first.
  Signal<> changed;

 private:
  void begin();
  void find(const QString& owner);
  void setThere(bool isThere);

  SessionBus& bus_;
  Subscription busChanged_;
  std::unique_ptr<QDBusServiceWatcher> watcher_;
  bool isThere_ = false;
};

}  // namespace Hilalor::Desktop
