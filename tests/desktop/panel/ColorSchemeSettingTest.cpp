#include "desktop/panel/ColorSchemeSetting.hpp"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include "tests/fakes/PrivateBus.hpp"
#include "tests/fakes/VirtualLoop.hpp"
#include "ui/Colors.hpp"

namespace Hilalor::Desktop {
namespace {

const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");

/// Answers what the desktop's colours are.
class Portal final : public QDBusVirtualObject {
 public:
  explicit Portal(QDBusConnection bus) : bus_(std::move(bus)) {
    bus_.registerVirtualObject(kPath, this);
    bus_.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
  }

  void tell(const char* key, uint scheme) {
    auto signal = QDBusMessage::createSignal(
        kPath, QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("SettingChanged"));
    bus_.send(signal << "org.freedesktop.appearance" << key << variantOf(scheme));
  }

  [[nodiscard]] QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    // As most portals wrap it, once more than they need.
    const QVariant answer = QVariant::fromValue(QDBusVariant(variantOf(1)));
    return message.arguments() == QVariantList{"org.freedesktop.appearance", "color-scheme"} &&
           bus.send(message.createReply(answer));
  }

 private:
  static QVariant variantOf(uint scheme) { return QVariant::fromValue(QDBusVariant(scheme)); }
  QDBusConnection bus_;
};

TEST(ColorSchemeSetting, FollowsThePortalsAnswersAndItsChanges) {
  const PrivateBus bus;
  if (!bus.isRunning()) GTEST_SKIP() << "no dbus-daemon";
  qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
  Portal portal(bus.connection(QStringLiteral("portal")));
  VirtualLoop loop;
  SessionBus sessionBus(loop);
  const ColorSchemeSetting setting(sessionBus);
  const auto waitFor = [](const QPalette& palette) {
    const auto ground = palette.color(QPalette::Window);
    while (QApplication::palette().color(QPalette::Window) != ground)
      QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  };
  const auto plain = QApplication::palette();
  loop.runPosted();
  waitFor(Ui::windowPalette(Ui::ColorScheme::dark));
  portal.tell("accent-color", 2);
  portal.tell("color-scheme", 2);
  waitFor(Ui::windowPalette(Ui::ColorScheme::light));
  portal.tell("color-scheme", 0);
  waitFor(plain);
  QDBusConnection::disconnectFromBus(QStringLiteral("portal"));
}

}  // namespace
}  // namespace Hilalor::Desktop
