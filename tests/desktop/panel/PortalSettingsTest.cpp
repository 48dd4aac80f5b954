#include "desktop/panel/AppearanceSetting.hpp"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QFont>

#include "desktop/display/XSettings.hpp"
#include "desktop/panel/MotionSetting.hpp"
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

  void tell(const char* group, const char* key, const QVariant& value) {
    auto signal = QDBusMessage::createSignal(
        kPath, QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("SettingChanged"));
    bus_.send(signal << group << key << variantOf(value));
  }

  [[nodiscard]] QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    // As most portals wrap it, once more than they need.
    const QVariant answer = QVariant::fromValue(QDBusVariant(variantOf(1U)));
    return message.arguments() == QVariantList{"org.freedesktop.appearance", "color-scheme"} &&
           bus.send(message.createReply(answer));
  }

 private:
  static QVariant variantOf(const QVariant& value) {
    return QVariant::fromValue(QDBusVariant(value));
  }
  QDBusConnection bus_;
};

TEST(PortalSettings, FollowTheAnswersAndTheChanges) {
  const PrivateBus bus;
  if (!bus.isRunning()) GTEST_SKIP() << "no dbus-daemon";
  qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
  Portal portal(bus.connection(QStringLiteral("portal")));
  VirtualLoop loop;
  SessionBus sessionBus(loop);
  PortalSettings settings(sessionBus);
  followAppearance(settings);
  Ui::PopUpStyle style({[] { return true; }, [] { return true; }});
  followMotion(settings, style);
  const auto waitFor = [](const QPalette& palette) {
    const auto ground = palette.color(QPalette::Window);
    while (QApplication::palette().color(QPalette::Window) != ground)
      QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  };
  const auto plain = QApplication::palette();
  loop.runPosted();
  waitFor(Ui::windowPalette(Ui::ColorScheme::dark));
  const char* const appearance = "org.freedesktop.appearance";
  portal.tell(appearance, "accent-color", 2U);
  portal.tell(appearance, "color-scheme", 2U);
  waitFor(Ui::windowPalette(Ui::ColorScheme::light));
  portal.tell(appearance, "contrast", 1U);
  waitFor(Ui::windowPalette(Ui::ColorScheme::light, Ui::Contrast::high));
  portal.tell("org.gnome.desktop.interface", "font-name", "Sans Bold 18");
  portal.tell("org.gnome.desktop.interface", "gtk-theme", "HighContrastInverse");
  waitFor(Ui::windowPalette(Ui::ColorScheme::dark, Ui::Contrast::high));
  EXPECT_EQ(QApplication::font().pointSizeF(), 18);
  portal.tell(appearance, "contrast", 0U);
  portal.tell("org.gnome.desktop.interface", "gtk-theme", "Adwaita");
  const auto waitForMotion = [&style](bool isWanted) {
    const auto now = [&] {
      return style.styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, nullptr, nullptr) > 0;
    };
    while (now() != isWanted)
      QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  };
  portal.tell("org.gnome.desktop.interface", "enable-animations", false);
  waitForMotion(false);
  portal.tell("org.gnome.desktop.interface", "enable-animations", true);
  waitForMotion(true);
  portal.tell("org.kde.kdeglobals.KDE", "AnimationDurationFactor", "0");
  waitForMotion(false);
  portal.tell("org.kde.kdeglobals.KDE", "AnimationDurationFactor", "0.5");
  waitForMotion(true);
  portal.tell(appearance, "reduced-motion", 1U);
  waitForMotion(false);
  portal.tell(appearance, "color-scheme", 0U);
  waitFor(plain);
  QDBusConnection::disconnectFromBus(QStringLiteral("portal"));
}

TEST(XSettings, AreFoundInWhatTheManagerWrote) {
  using namespace std::string_literals;
  const std::string text =
      "\0\0\0\0\1\0\0\0\3\0\0\0"s       // Three, the least byte first:
      "\1\0\2\0ab\0\0\0\0\0\0\5\0\0\0"  // a text,
      "hello\0\0\0"
      "\2\0\1\0c\0\0\0\0\0\0\0\1\2\3\4\5\6\7\0"  // a colour,
      "\0\0\3\0xyz\0\0\0\0\0\376\377\377\377"s;  // and a number.
  const auto found = [&text](std::string_view name, std::size_t bytes) {
    const auto* first = reinterpret_cast<const std::uint8_t*>(text.data());
    return xSettingIn({first, bytes}, name);
  };
  using Value = std::variant<std::int32_t, std::string>;
  EXPECT_EQ(found("xyz", text.size()), Value(-2));
  EXPECT_EQ(found("ab", text.size()), Value("hello"));
  EXPECT_FALSE(found("none", text.size()));
  EXPECT_FALSE(found("xyz", 50));
}

}  // namespace
}  // namespace Hilalor::Desktop
