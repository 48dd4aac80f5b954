#include "desktop/item/ShellItem.hpp"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVariant>

#include "tests/fakes/PrivateBus.hpp"
#include "tests/fakes/VirtualLoop.hpp"

namespace Hilalor::Desktop {
namespace {

/// What the shell's side of the bus gets for a call of the item.
QDBusMessage answer(const QDBusConnection& shell, const char* interface, const char* method,
                    const QVariantList& arguments) {
  auto call = QDBusMessage::createMethodCall(QStringLiteral("org.hilalor.Hilalor.Item"),
                                             QStringLiteral("/org/hilalor/Hilalor/Item"),
                                             QLatin1String(interface), QLatin1String(method));
  call.setArguments(arguments);
  const auto pending = shell.asyncCall(call);
  while (!pending.isFinished())
    QCoreApplication::processEvents();
  return pending.reply();
}

TEST(ShellItem, IsThereForTheExtensionAndLearnsItsPlace) {
  const PrivateBus bus;
  if (!bus.isRunning()) GTEST_SKIP() << "no dbus-daemon";
  qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
  VirtualLoop loop;
  SessionBus sessionBus(loop);
  loop.runPosted();
  ShellExtension extension(sessionBus);
  const auto waitUntilThere = [&](bool isThere) {
    while (extension.isThere() != isThere)
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  };
  auto shell = bus.connection(QStringLiteral("shell"));
  const auto host = QStringLiteral("org.hilalor.Hilalor.Host");
  ASSERT_TRUE(shell.registerService(host));
  waitUntilThere(true);

  std::optional<StatusItemClick> told;
  const ItemContent content{.title = {.text = "Dhuhr 5m", .compact = {}},
                            .action = [&](const auto& click) { told = click; },
                            .menu = {},
                            .hostedMenu = {}};
  const GlyphPictures pictures(HILALOR_ITEM_PICTURES);
  {
    const ShellItem item(extension, content, pictures);
    while (!shell.interface()->isServiceRegistered(QStringLiteral("org.hilalor.Hilalor.Item")))
      QCoreApplication::processEvents();
    const auto text = answer(shell, "org.freedesktop.DBus.Properties", "Get",
                             {QStringLiteral("org.hilalor.Item"), QStringLiteral("Text")});
    EXPECT_EQ(text.arguments().value(0).value<QDBusVariant>().variant(),
              QStringLiteral("Dhuhr 5m"));
    EXPECT_FALSE(item.place());
    answer(shell, "org.hilalor.Item", "Activate", {600, 0, 80, 24});
    EXPECT_EQ(item.place(), (Rect{{600, 0}, {80, 24}}));
    ASSERT_TRUE(told);
    EXPECT_EQ(told->pointer, (Point{640, 12}));
  }
  EXPECT_EQ(answer(shell, "org.hilalor.Item", "Activate", {600, 0, 80, 24}).type(),
            QDBusMessage::ErrorMessage);
  shell.unregisterService(host);
  waitUntilThere(false);
  QDBusConnection::disconnectFromBus(QStringLiteral("shell"));
}

}  // namespace
}  // namespace Hilalor::Desktop
