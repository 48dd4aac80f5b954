#include "desktop/notifications/LinuxNotificationCenter.hpp"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>
#include <utility>

namespace Hilalor {
namespace {

const QString kProgramName = QStringLiteral("Hilalor");

/// Names the program's .desktop file and its icon.
const QString kProgramId = QStringLiteral("hilalor");

/// What a new message sounds like, by the sound names that desktops share.
const QString kDefaultSound = QStringLiteral("message-new-instant");

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

void LinuxNotificationCenter::authorizationStatus(
    std::function<void(NotificationAuthorization)> answer) {
  const auto bus = bus_();
  if (!bus) {
    loop_.post([answer = std::move(answer)] { answer(NotificationAuthorization::denied); });
    return;
  }
  auto* call = new QDBusPendingCallWatcher(bus->asyncCall(callTo(QStringLiteral("GetCapabilities")),
                                                          static_cast<int>(answersWithin_.count())),
                                           &calls_);
  QObject::connect(call, &QDBusPendingCallWatcher::finished, &calls_,
                   [this, answer = std::move(answer)](QDBusPendingCallWatcher* finished) {
                     const QDBusPendingReply<QStringList> reply = *finished;
                     finished->deleteLater();
                     capabilities_ = reply.isValid() ? reply.value() : QStringList();
                     answer(reply.isValid() ? NotificationAuthorization::authorized
                                            : NotificationAuthorization::denied);
                   });
}

void LinuxNotificationCenter::add(const NotificationRequest& request) {
  const auto bus = bus_();
  const auto presentation =
      delegate_ != nullptr ? delegate_->willPresent(request) : NotificationOptions::none;
  if (!bus || !contains(presentation, NotificationOptions::banner)) return;
  auto body = QString::fromStdString(request.body);
  if (capabilities_.contains(QStringLiteral("body-markup"))) body = body.toHtmlEscaped();
  constexpr uint kReplacesNone = 0;
  constexpr int kServicesOwnTime = -1;
  auto call = callTo(QStringLiteral("Notify"));
  call << kProgramName << kReplacesNone << kProgramId << QString::fromStdString(request.title)
       << body << QStringList() << hints(presentation) << kServicesOwnTime;
  bus->send(call);
}

}  // namespace Hilalor
