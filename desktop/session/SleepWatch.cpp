#include "desktop/session/SleepWatch.hpp"

#include <QString>
#include <utility>

namespace Hilalor::Desktop {

SleepWatch::SleepWatch(QDBusConnection systemBus, std::function<void()> onWaking)
    : onWaking_(std::move(onWaking)) {
  systemBus.connect(QStringLiteral("org.freedesktop.login1"),
                    QStringLiteral("/org/freedesktop/login1"),
                    QStringLiteral("org.freedesktop.login1.Manager"),
                    QStringLiteral("PrepareForSleep"), this, SLOT(prepareForSleep(bool)));
}

void SleepWatch::prepareForSleep(bool isGoingToSleep) {
  if (!isGoingToSleep) onWaking_();
}

}  // namespace Hilalor::Desktop
