#include "desktop/notifications/LinuxNotificationCenter.hpp"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QDBusContext>
#include <QDBusMessage>
#include <QVariantMap>
#include <memory>
#include <optional>
#include <vector>

#include "desktop/process/QtRunLoop.hpp"
#include "tests/fakes/PrivateBus.hpp"
#include "tests/fakes/VirtualLoop.hpp"

namespace Hilalor::Desktop {

/// A notification service as the test wants it, which keeps what it was asked to show.
class NotificationService : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

 public:
  struct Banner {
    QString program;
    QString icon;
    QString title;
    QString body;
    QVariantMap hints;
    int milliseconds;
  };
  QStringList capabilities{"body", "actions"};
  bool answers = true;
  std::vector<Banner> banners;

 public Q_SLOTS:
  QStringList GetCapabilities() {
    if (!answers) setDelayedReply(true);
    return capabilities;
  }

  uint Notify(const QString& program, uint, const QString& icon, const QString& title,
              const QString& body, const QStringList&, const QVariantMap& hints, int milliseconds) {
    banners.push_back({program, icon, title, body, hints, milliseconds});
    return 1;
  }
};

namespace {

using Status = NotificationAuthorization;

struct Presentation final : NotificationCenter::Delegate {
  NotificationOptions options = NotificationOptions::banner | NotificationOptions::sound;
  NotificationOptions willPresent(const NotificationRequest&) override { return options; }
};

class LinuxNotificationCenterTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!bus.isRunning()) GTEST_SKIP() << "no dbus-daemon here";
    center.setDelegate(&presentation);
  }
  ~LinuxNotificationCenterTest() override {
    QDBusConnection::disconnectFromBus("program");
    QDBusConnection::disconnectFromBus("service");
  }

  void startService() {
    serviceSide.registerObject("/org/freedesktop/Notifications", &service,
                               QDBusConnection::ExportAllSlots);
    ASSERT_TRUE(serviceSide.registerService("org.freedesktop.Notifications"));
  }

  void endService() { serviceSide.unregisterService("org.freedesktop.Notifications"); }

  Status status() {
    std::optional<Status> answer;
    center.authorizationStatus([&](Status status) { answer = status; });
    EXPECT_EQ(answer, std::nullopt) << "answered within the call";
    while (!answer)
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return *answer;
  }

  /// What the service is asked to show.
  NotificationService::Banner shown(const NotificationRequest& request) {
    const auto before = service.banners.size();
    center.add(request);
    while (service.banners.size() == before)
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return service.banners.back();
  }

  PrivateBus bus;
  QDBusConnection programSide = bus.connection("program");
  QDBusConnection serviceSide = bus.connection("service");
  NotificationService service;
  QtRunLoop loop;
  Presentation presentation;
  LinuxNotificationCenter center{loop, [this] { return std::optional(programSide); },
                                 std::chrono::milliseconds(200)};
};

const NotificationRequest kFajr{"1b4e28ba-2fa1-41d2-883f-0016d3cca427", "\U0001F54C Fajr",
                                "It's time for Fajr prayer"};

TEST_F(LinuxNotificationCenterTest, IsAuthorisedWhileAServiceAnswers) {
  EXPECT_EQ(status(), Status::denied) << "none yet";
  startService();
  EXPECT_EQ(status(), Status::authorized);
  endService();
  EXPECT_EQ(status(), Status::denied) << "gone";
  startService();
  EXPECT_EQ(status(), Status::authorized) << "back";
  service.answers = false;
  EXPECT_EQ(status(), Status::denied) << "hangs";
}

TEST_F(LinuxNotificationCenterTest, WithoutABusIsDenied) {
  LinuxNotificationCenter alone(loop, [] { return std::nullopt; });
  std::optional<bool> granted;
  alone.requestAuthorization(NotificationOptions::alert, [&](bool answer) { granted = answer; });
  alone.add(kFajr);
  while (!granted)
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  EXPECT_EQ(granted, false);
}

TEST_F(LinuxNotificationCenterTest, WaitsAMinuteForABusThatWasLost) {
  VirtualLoop minutes;
  bool isLost = true;
  LinuxNotificationCenter alone(
      minutes, [&] { return isLost ? std::nullopt : std::optional(programSide); },
      std::chrono::milliseconds(200));
  std::vector<Status> answers;
  const auto ask = [&] {
    alone.authorizationStatus([&](Status status) { answers.push_back(status); });
    minutes.runPosted();
  };
  alone.busChanged();
  ask();
  minutes.advance(Seconds(59));
  EXPECT_TRUE(answers.empty());
  minutes.advance(Seconds(2));
  EXPECT_EQ(answers, std::vector{Status::denied});
  ask();
  EXPECT_EQ(answers.size(), 2U) << "at once, when the bus has been gone for long";
  alone.busChanged();
  ask();
  isLost = false;
  startService();
  alone.busChanged();
  while (answers.size() < 3)
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  EXPECT_EQ(answers.back(), Status::authorized);
}

TEST_F(LinuxNotificationCenterTest, ShowsTheBannerInTheProgramsName) {
  startService();
  EXPECT_EQ(status(), Status::authorized);
  const auto banner = shown(kFajr);
  EXPECT_EQ(banner.program.toStdString(), "Hilalor");
  EXPECT_EQ(banner.icon.toStdString(), "hilalor");
  EXPECT_EQ(banner.title.toStdString(), kFajr.title);
  EXPECT_EQ(banner.body.toStdString(), kFajr.body);
  EXPECT_EQ(banner.hints.value("desktop-entry").toString().toStdString(), "hilalor");
  EXPECT_EQ(banner.hints.value("sound-name").toString().toStdString(), "message-new-instant");
  EXPECT_EQ(banner.milliseconds, -1);
}

TEST_F(LinuxNotificationCenterTest, KeepsTheTextPlainWhereTheServiceReadsMarkup) {
  startService();
  const NotificationRequest request{"", "a < b", "<b>R&B</b>"};
  EXPECT_EQ(status(), Status::authorized);
  EXPECT_EQ(shown(request).body.toStdString(), "<b>R&B</b>");
  service.capabilities.append("body-markup");
  EXPECT_EQ(status(), Status::authorized);
  const auto banner = shown(request);
  EXPECT_EQ(banner.body.toStdString(), "&lt;b&gt;R&amp;B&lt;/b&gt;");
  EXPECT_EQ(banner.title.toStdString(), "a < b") << "titles have no markup";
}

TEST_F(LinuxNotificationCenterTest, AsksHowToShowIt) {
  startService();
  presentation.options = NotificationOptions::none;
  center.add(kFajr);
  presentation.options = NotificationOptions::banner;
  const auto banner = shown({"", "Dhuhr", ""});
  ASSERT_EQ(service.banners.size(), 1U);
  EXPECT_EQ(banner.hints.value("suppress-sound").toBool(), true);
  EXPECT_FALSE(banner.hints.contains("sound-name"));
}

}  // namespace
}  // namespace Hilalor::Desktop

#include "LinuxNotificationCenterTests.moc"
