#pragma once

#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <functional>
#include <memory>

#include "desktop/item/NotifierTraits.hpp"
#include "desktop/session/SessionBus.hpp"

namespace Hilalor::Desktop {

/// The bar that shows items on D-Bus (StatusNotifierItem), one at a time, as it comes and goes.
class NotifierHost : public QObject {
  Q_OBJECT

 public:
  enum class State { unknown, absent, present };

  /// The bus must outlive the host.
  explicit NotifierHost(SessionBus& bus);

  /// Unknown only until the bus has been asked for the first time.
  [[nodiscard]] State state() const { return state_; }

  /// Of the bar that is present.
  [[nodiscard]] const NotifierTraits& traits() const { return traits_; }

  [[nodiscard]] SessionBus& bus() { return bus_; }

  /// Shows the item exported at /StatusNotifierItem by the connection with that unique name.
  void registerItem(const QString& name) const;

  /// Tells the item's owner, while it lives, if the bar says which items it has and this one is not
  /// among them.
  void lookForItem(const QString& name, QObject* owner, std::function<void()> missing) const;

  /// Told when a bar has come or gone; a bar that is another one goes first.
  Signal<> changed;

 private Q_SLOTS:
  void askIfItShows();

 private:
  void begin();
  void find(const QString& owner);
  void setState(State state);

  SessionBus& bus_;
  Subscription busChanged_;
  std::unique_ptr<QDBusServiceWatcher> watcher_;
  /// Counts the watchers seen, so that an answer that is late is not taken for the present one's.
  int generation_ = 0;
  State state_ = State::unknown;
  NotifierTraits traits_;
};

}  // namespace Hilalor::Desktop
