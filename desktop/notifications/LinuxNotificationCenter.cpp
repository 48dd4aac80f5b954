#include "desktop/notifications/LinuxNotificationCenter.hpp"

#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QVariantMap>
#include <limits>
#include <utility>

#include "desktop/process/ProgramId.hpp"
#include "desktop/session/BusCall.hpp"

namespace Hilalor::Desktop {
namespace {

const QString kProgramName = QStringLiteral("Hilalor");

/// What was announced a minute ago is no news.
constexpr Seconds kLateBanner{60};
constexpr Seconds kNextTry{2};

/// What a new message sounds like, by the sound names that desktops share.
const QString kDefaultSound = QStringLiteral("message-new-instant");

/// A banner at which the service crashes must not crash it all day.
constexpr int kMostSendings = 3;

QDBusMessage callTo(const QString& method) {
  return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.Notifications"),
                                        QStringLiteral("/org/freedesktop/Notifications"),
                                        QStringLiteral("org.freedesktop.Notifications"), method);
}

QVariantMap hints(NotificationOptions presentation) {
  QVariantMap hints{{QStringLiteral("desktop-entry"), kProgramId},
                    {QStringLiteral("urgency"), QVariant::fromValue<uchar>(1)}};
  if (contains(presentation, NotificationOptions::sound)) {
    hints.insert(QStringLiteral("sound-name"), kDefaultSound);
  } else {
    hints.insert(QStringLiteral("suppress-sound"), true);
  }
  return hints;
}

}  // namespace

LinuxNotificationCenter::LinuxNotificationCenter(RunLoop& loop, Bus bus,
                                                 std::chrono::milliseconds answersWithin)
    : loop_(loop), bus_(std::move(bus)), answersWithin_(answersWithin) {}

void LinuxNotificationCenter::requestAuthorization(NotificationOptions /*options*/,
                                                   std::function<void(bool granted)> answer) {
  authorizationStatus([answer = std::move(answer)](NotificationAuthorization status) {
    answer(status == NotificationAuthorization::authorized);
  });
}

void LinuxNotificationCenter::authorizationStatus(Answer answer) {
  if (const auto bus = bus_()) return ask(*bus, std::move(answer));
  loop_.post([this, answer = std::move(answer)] { deny(answer); });
}

void LinuxNotificationCenter::ask(const QDBusConnection& bus, Answer answer) {
  const auto call = bus.asyncCall(callTo(QStringLiteral("GetCapabilities")),
                                  static_cast<int>(answersWithin_.count()));
  whenAnswered(call, &calls_, [this, answer = std::move(answer)](const QDBusPendingCall& answered) {
    const QDBusPendingReply<QStringList> reply = answered;
    capabilities_ = reply.isValid() ? reply.value() : QStringList();
    if (!reply.isValid()) return deny(answer);
    expectService();
    answer(NotificationAuthorization::authorized);
  });
}

void LinuxNotificationCenter::expectService() {
  isExpected_ = true;
  givingUp_.reset();
}

void LinuxNotificationCenter::deny(Answer answer) {
  if (!isExpected_) return answer(NotificationAuthorization::denied);
  waiting_.push_back(std::move(answer));
  if (!givingUp_) givingUp_ = loop_.once(kLateBanner, [this] { giveUp(); });
  nextTry_ = loop_.once(kNextTry, [this] { askAgain(); });
}

void LinuxNotificationCenter::busChanged() {
  expectService();
  askAgain();
}

void LinuxNotificationCenter::askAgain() {
  for (auto& answer : std::exchange(waiting_, {}))
    authorizationStatus(std::move(answer));
}

void LinuxNotificationCenter::giveUp() {
  isExpected_ = false;
  const auto finished = std::move(givingUp_);
  for (const auto& answer : std::exchange(waiting_, {}))
    answer(NotificationAuthorization::denied);
}

void LinuxNotificationCenter::add(const NotificationRequest& request) {
  send(request, kMostSendings);
}

void LinuxNotificationCenter::send(const NotificationRequest& request, int sendings) {
  const auto presentation =
      delegate_ != nullptr ? delegate_->willPresent(request) : NotificationOptions::none;
  if (!contains(presentation, NotificationOptions::banner)) return;
  const auto bus = bus_();
  if (!bus) return sendAgain(request, sendings);
  auto body = QString::fromStdString(request.body);
  if (capabilities_.contains(QStringLiteral("body-markup"))) body = body.toHtmlEscaped();
  constexpr uint kReplacesNone = 0;
  constexpr int kServicesOwnTime = -1;
  auto call = callTo(QStringLiteral("Notify"));
  call << kProgramName << kReplacesNone << kProgramId << QString::fromStdString(request.title)
       << body << QStringList() << hints(presentation) << kServicesOwnTime;
  // What was only slow is not to be shown twice.
  constexpr int kWithoutTimeLimit = std::numeric_limits<int>::max();
  auto* sent = new QDBusPendingCallWatcher(bus->asyncCall(call, kWithoutTimeLimit), &calls_);
  QObject::connect(sent, &QDBusPendingCallWatcher::finished, &calls_,
                   [this, request, sendings, sent] {
                     sent->deleteLater();
                     if (sent->isError()) sendAgain(request, sendings);
                   });
}

void LinuxNotificationCenter::sendAgain(const NotificationRequest& request, int sendings) {
  if (sendings == 1) return;
  deny([this, request, sendings](NotificationAuthorization status) {
    if (status == NotificationAuthorization::authorized) send(request, sendings - 1);
  });
}

}  // namespace Hilalor::Desktop
