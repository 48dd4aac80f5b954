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
/// bus starts a service that is installed but not running. One that does not answer may be about to
/// come back: questions wait a minute for it, and so does a banner that went down with it. Main
/// thread.
class LinuxNotificationCenter final : public NotificationCenter {
 public:
  /// The user's bus as it is now; none while there is no bus.
  using Bus = std::function<std::optional<QDBusConnection>()>;

  /// A service that does not answer in time counts as none. One that the bus must first start on a
  /// busy machine needs many seconds, and nothing else waits for it.
  LinuxNotificationCenter(RunLoop& loop, Bus bus,
                          std::chrono::milliseconds answersWithin = std::chrono::seconds(20));

  /// To be told when the bus came or went.
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
  void expectService();
  void askAgain();
  void giveUp();
  void send(const NotificationRequest& request, int sendings);
  void sendAgain(const NotificationRequest& request, int sendings);

  RunLoop& loop_;
  Bus bus_;
  std::chrono::milliseconds answersWithin_;
  Delegate* delegate_ = nullptr;
  QStringList capabilities_;  // of the service that answered last
  std::vector<Answer> waiting_;
  bool isExpected_ = true;           // Not one that was missed for a whole minute.
  std::unique_ptr<Timer> givingUp_;  // Runs while the service is missed.
  std::unique_ptr<Timer> nextTry_;
  QObject calls_;  // calls on their way end with it
};

}  // namespace Hilalor::Desktop
