#pragma once

#include <QDBusConnection>
#include <QObject>
#include <functional>

namespace Hilalor::Desktop {

/// Tells when the machine wakes, as systemd-logind or a stand-in for it says on the system bus.
/// Where there is neither, it never does. Main thread.
class SleepWatch final : public QObject {
  Q_OBJECT

 public:
  SleepWatch(QDBusConnection systemBus, std::function<void()> onWaking);

 private Q_SLOTS:
  void prepareForSleep(bool isGoingToSleep);

 private:
  std::function<void()> onWaking_;
};

}  // namespace Hilalor::Desktop
