#include "desktop/session/SleepWatch.hpp"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include "tests/fakes/PrivateBus.hpp"

namespace Hilalor::Desktop {
namespace {

TEST(SleepWatch, TellsOfTheWakingAlone) {
  const PrivateBus bus;
  if (!bus.isRunning()) GTEST_SKIP() << "no dbus-daemon";
  auto program = bus.connection(QStringLiteral("program"));
  auto logind = bus.connection(QStringLiteral("logind"));
  int wakings = 0;
  const SleepWatch watch(program, [&] { ++wakings; });
  const auto say = [&](bool isGoingToSleep) {
    auto signal = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/login1"),
                                             QStringLiteral("org.freedesktop.login1.Manager"),
                                             QStringLiteral("PrepareForSleep"));
    logind.send(signal << isGoingToSleep);
    // What was sent before has arrived when the bus has answered both sides.
    for (const auto* side : {&logind, &program})
      static_cast<void>(side->interface()->registeredServiceNames());
    QCoreApplication::processEvents();
  };

  say(false);
  EXPECT_EQ(wakings, 0) << "another program's word";
  ASSERT_TRUE(logind.registerService(QStringLiteral("org.freedesktop.login1")));
  say(true);
  EXPECT_EQ(wakings, 0) << "falls asleep";
  say(false);
  EXPECT_EQ(wakings, 1) << "wakes";

  for (const auto* name : {"program", "logind"})
    QDBusConnection::disconnectFromBus(QString::fromLatin1(name));
}

}  // namespace
}  // namespace Hilalor::Desktop
