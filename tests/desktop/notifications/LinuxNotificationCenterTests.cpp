#include "desktop/notifications/LinuxNotificationCenter.hpp"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QDBusContext>
#include <QDBusMessage>
#include <QVariantMap>
#include <memory>
#include <optional>
#include <vector>

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
  int losses = 0;
  std::vector<Banner> banners;

 public Q_SLOTS:
  QStringList GetCapabilities() {
    if (!answers) setDelayedReply(true);
    return capabilities;
  }

  uint Notify(const QString& program, uint, const QString& icon, const QString& title,
              const QString& body, const QStringList&, const QVariantMap& hints, int milliseconds) {
    // So the bus says of a service that ends.
    if (losses > 0 && losses-- > 0)
      sendErrorReply(QDBusError::NoReply);
    else
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
    waitUntil([&] { return answer.has_value(); });
    return *answer;
  }

  /// The minutes pass quickly.
  template <typename Condition>
  void waitUntil(Condition isMet) {
    while (!isMet()) {
      QCoreApplication::processEvents();
      minutes.advance(Seconds(1));
    }
  }

  /// What the service is asked to show.
  NotificationService::Banner shown(const NotificationRequest& request) {
    const auto before = service.banners.size();
    center.add(request);
    waitUntil([&] { return service.banners.size() > before; });
    return service.banners.back();
  }

  PrivateBus bus;
  QDBusConnection programSide = bus.connection("program");
  QDBusConnection serviceSide = bus.connection("service");
  NotificationService service;
  VirtualLoop minutes;
  bool hasBus = true;
  Presentation presentation;
  LinuxNotificationCenter center{
      minutes, [this] { return hasBus ? std::optional(programSide) : std::nullopt; },
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

TEST_F(LinuxNotificationCenterTest, WaitsAMinuteForABusAndAService) {
  hasBus = false;
  std::vector<Status> answers;
  const auto ask = [&] {
    center.authorizationStatus([&](Status status) { answers.push_back(status); });
    minutes.runPosted();
  };
  ask();
  minutes.advance(Seconds(59));
  EXPECT_TRUE(answers.empty());
  minutes.advance(Seconds(2));
  EXPECT_EQ(answers, std::vector{Status::denied});
  ask();
  EXPECT_EQ(answers.size(), 2U) << "at once, when it has been gone for long";
  hasBus = true;
  center.busChanged();
  EXPECT_EQ(status(), Status::denied) << "the service did not come with the bus";
}

TEST_F(LinuxNotificationCenterTest, SendsAgainWhatWentDownWithTheService) {
  startService();
  service.losses = 2;
  EXPECT_EQ(shown(kFajr).title.toStdString(), kFajr.title);
  service.losses = 9;
  center.add(kFajr);
  waitUntil([&] { return service.losses == 6; });
  hasBus = false;
  center.add(kFajr);
  service.losses = 0;
  hasBus = true;
  waitUntil([&] { return service.banners.size() > 1; });
  EXPECT_EQ(service.banners.size(), 2U);
}

TEST_F(LinuxNotificationCenterTest, ShowsTheBannerInTheProgramsName) {
  startService();
  EXPECT_EQ(status(), Status::authorized);
  const auto banner = shown(kFajr);
  EXPECT_EQ(banner.program.toStdString(), "Hilalor");
  EXPECT_EQ(banner.icon.toStdString(), "org.hilalor.Hilalor");
  EXPECT_EQ(banner.title.toStdString(), kFajr.title);
  EXPECT_EQ(banner.body.toStdString(), kFajr.body);
  EXPECT_EQ(banner.hints.value("desktop-entry").toString().toStdString(), "org.hilalor.Hilalor");
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
