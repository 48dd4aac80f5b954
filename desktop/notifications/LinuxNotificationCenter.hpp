#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/NotificationCenter.hpp"
#include "platform/RunLoop.hpp"

namespace Hilalor::Desktop {

/// Banners by the desktop's notification service, org.freedesktop.Notifications. Banners are
/// allowed while a service answers: the desktop's own switches decide what it does with them. The
/// bus starts a service that is installed but not running. Main thread.
class LinuxNotificationCenter final : public NotificationCenter {
 public:
  /// The user's bus as it is now; none while there is no bus.
  using Bus = std::function<std::optional<QDBusConnection>()>;

  /// A service that does not answer in time counts as none. One that the bus must first start on a
  /// busy machine needs many seconds, and nothing else waits for it.
  LinuxNotificationCenter(RunLoop& loop, Bus bus,
                          std::chrono::milliseconds answersWithin = std::chrono::seconds(20));

  /// To be told when the bus came or went. Questions of the minute after a loss wait for the bus
  /// and the service to come back: a prayer may be due just then.
  void busChanged();

  void setDelegate(Delegate* delegate) override { delegate_ = delegate; }
  void requestAuthorization(NotificationOptions options,
                            std::function<void(bool granted)> answer) override;
  void authorizationStatus(std::function<void(NotificationAuthorization)> answer) override;
  void add(const NotificationRequest& request) override;

 private:
  using Answer = std::function<void(NotificationAuthorization)>;

  void ask(const QDBusConnection& bus, Answer answer);
  void deny(Answer answer);
  void askAgain();
  void giveUp();

  RunLoop& loop_;
  Bus bus_;
  std::chrono::milliseconds answersWithin_;
  Delegate* delegate_ = nullptr;
  QStringList capabilities_;  // of the service that answered last
  std::vector<Answer> waiting_;
  std::unique_ptr<Timer> returning_;  // runs for a while after the loss of the bus
  std::unique_ptr<Timer> nextTry_;
  QObject calls_;  // those on their way end with it
};

}  // namespace Hilalor::Desktop
