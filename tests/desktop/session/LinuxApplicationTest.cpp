#include "desktop/session/LinuxApplication.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <chrono>
#include <csignal>
#include <functional>
#include <future>

#include "desktop/session/BusProbe.hpp"
#include "desktop/session/SessionBus.hpp"
#include "tests/fakes/PrivateBus.hpp"
#include "tests/fakes/VirtualLoop.hpp"

namespace Hilalor::Desktop {
namespace {

const QString kName = QStringLiteral("org.hilalor.Hilalor");

void runUntil(const std::function<bool()>& condition) {
  while (!condition())
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

/// Who has the program's name; empty for nobody.
QString owner(const PrivateBus& bus) {
  static int connections = 0;
  const auto name = QStringLiteral("onlooker-%1").arg(++connections);
  const auto answer = bus.connection(name).interface()->serviceOwner(kName);
  QDBusConnection::disconnectFromBus(name);
  return answer.isValid() ? answer.value() : QString();
}

// libdbus remembers the first address of the session's bus for good.
class LinuxApplicationTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!bus.isRunning()) GTEST_SKIP() << "no dbus-daemon";
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
  }

  PrivateBus bus;
  VirtualLoop loop;
};

TEST_F(LinuxApplicationTest, TakesItsNameOnEveryBusThatComes) {
  LinuxApplication application;
  ASSERT_TRUE(application.becomeTheRunningCopy(LinuxApplication::kPatienceWithAnother));
  SessionBus sessionBus(loop);
  application.remainTheRunningCopy(sessionBus);
  loop.runPosted();
  ASSERT_TRUE(sessionBus.connection());
  const auto first = owner(bus);
  EXPECT_FALSE(first.isEmpty());

  bus.restart();
  runUntil([&] { return !sessionBus.connection(); });
  loop.advance(Seconds(30));
  runUntil([&] { return !owner(bus).isEmpty(); });
  EXPECT_EQ(owner(bus), sessionBus.connection()->baseService());

  // The name is refused where another copy was faster.
  bus.restart();
  runUntil([&] { return !sessionBus.connection(); });
  auto copy = bus.connection(QStringLiteral("copy"));
  ASSERT_TRUE(copy.registerService(kName));
  loop.advance(Seconds(30));
  EXPECT_EQ(QCoreApplication::exec(), 0) << "ends";
  QDBusConnection::disconnectFromBus(QStringLiteral("copy"));
}

TEST_F(LinuxApplicationTest, WaitsForACopyThatIsEnding) {
  auto ending = bus.connection(QStringLiteral("ending"));
  ASSERT_TRUE(ending.registerService(kName));
  // It has let go of its object, and answers with an error, as long as it has the name.
  const auto gone = std::async(std::launch::async, [&] {
    for (int look = 0; look < 5; ++look)
      EXPECT_FALSE(owner(bus).isEmpty());
    ending.unregisterService(kName);
  });
  LinuxApplication application;
  EXPECT_TRUE(application.becomeTheRunningCopy(std::chrono::seconds(0)));
  QDBusConnection::disconnectFromBus(QStringLiteral("ending"));
}

TEST_F(LinuxApplicationTest, ABusThatIsFrozenDoesNotAnswer) {
  const auto address = bus.address().toStdString();
  const std::chrono::milliseconds patience(5000);
  EXPECT_TRUE(busAnswers(address, patience));
  EXPECT_TRUE(busAnswers("unix:guid=0,path=" + address.substr(10) + ";tcp:port=1", patience));
  EXPECT_FALSE(busAnswers("unix:path=/nonexistent", patience));
  EXPECT_FALSE(busAnswers("", patience));
  bus.freeze();
  EXPECT_FALSE(busAnswers(address, std::chrono::milliseconds(1)));
}

TEST_F(LinuxApplicationTest, AShutdownThatIsStuckEnds) {
  LinuxApplication application;
  const auto waitInVain = [&] {
    application.terminate();
    if (alarm(0) > 0) raise(SIGALRM);
  };
  EXPECT_EXIT(waitInVain(), testing::ExitedWithCode(0), "") << "by itself";
  const auto raiseTwice = [&] {
    raise(SIGTERM);
    application.terminate();
    raise(SIGHUP);
    raise(SIGTERM);
  };
  EXPECT_EXIT(raiseTwice(), testing::KilledBySignal(SIGTERM), "");
}

}  // namespace
}  // namespace Hilalor::Desktop
