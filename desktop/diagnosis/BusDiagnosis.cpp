#include "desktop/diagnosis/BusDiagnosis.hpp"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QStringList>
#include <QVariantList>
#include <chrono>
#include <optional>

#include "desktop/process/ProcessName.hpp"
#include "desktop/process/ProgramId.hpp"
#include "desktop/session/BusCall.hpp"
#include "desktop/session/BusProbe.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr std::chrono::milliseconds kPatience{2000};
const QString kWatcher = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kNotifications = QStringLiteral("org.freedesktop.Notifications");
const QString kLocation = QStringLiteral("org.freedesktop.GeoClue2");

/// What is sent back; none where nothing is in time.
std::optional<QVariantList> answerTo(const QDBusConnection& bus, const QDBusMessage& call) {
  const auto reply = bus.call(call, QDBus::Block, static_cast<int>(kPatience.count()));
  if (reply.type() != QDBusMessage::ReplyMessage) return std::nullopt;
  return reply.arguments();
}

QStringList namesOf(const QDBusConnection& bus, const char* method) {
  const auto answer = answerTo(bus, busCall(method));
  return answer ? answer->value(0).toStringList() : QStringList();
}

// Only a bus that speaks is handed to the library, which would wait long for another.
std::optional<QDBusConnection> busAt(const std::string& address, const char* subject,
                                     const Tell& tell) {
  if (address.empty()) {
    tell(subject, "none");
    return std::nullopt;
  }
  const bool answers = busAnswers(address, kPatience);
  const auto bus = answers ? QDBusConnection::connectToBus(QString::fromStdString(address),
                                                           QString::fromLatin1(subject))
                           : QDBusConnection(QString());
  const bool isOpen = answers && bus.isConnected();
  tell(subject, isOpen ? "answers" : "does not answer");
  return isOpen ? std::optional(bus) : std::nullopt;
}

std::string processOf(const QDBusConnection& bus, const QString& name) {
  const auto answer = answerTo(bus, busCall("GetConnectionUnixProcessID", {name}));
  return answer ? processName(answer->value(0).toUInt()) : "";
}

std::string watcher(const QDBusConnection& bus, const QStringList& names) {
  if (!names.contains(kWatcher)) return "none";
  auto call = QDBusMessage::createMethodCall(kWatcher, QStringLiteral("/StatusNotifierWatcher"),
                                             QStringLiteral("org.freedesktop.DBus.Properties"),
                                             QStringLiteral("Get"));
  call << kWatcher << QStringLiteral("IsStatusNotifierHostRegistered");
  const auto answer = answerTo(bus, call);
  const auto hosts = !answer ? "does not say whether a bar shows them"
                     : answer->value(0).value<QDBusVariant>().variant().toBool()
                         ? "a bar shows them"
                         : "no bar shows them";
  return processOf(bus, kWatcher) + ", " + hosts;
}

std::optional<QVariantList> ofNotifications(const QDBusConnection& bus, const char* method) {
  return answerTo(bus, QDBusMessage::createMethodCall(
                           kNotifications, QStringLiteral("/org/freedesktop/Notifications"),
                           kNotifications, QLatin1String(method)));
}

// Starts the service where the bus can, as a banner would.
void diagnoseBanners(const QDBusConnection& bus, const Tell& tell) {
  const auto about = ofNotifications(bus, "GetServerInformation");
  if (!about) return tell("banners", "no service, or it does not answer");
  tell("banners",
       about->value(0).toString().toStdString() + ' ' + about->value(2).toString().toStdString());
  const auto answer = ofNotifications(bus, "GetCapabilities");
  const auto able = answer ? answer->value(0).toStringList() : QStringList();
  tell("banners can", able.join(QStringLiteral(", ")).toStdString());
}

}  // namespace

void diagnoseSessionBus(const Tell& tell) {
  const auto bus = busAt(sessionBusAddress(), "session bus", tell);
  if (!bus) return;
  const auto names = namesOf(*bus, "ListNames");
  const auto host = QLatin1String(kProgramId) + QStringLiteral(".Host");
  tell("running copy", names.contains(QLatin1String(kProgramId)) ? "yes" : "no");
  tell("GNOME extension", names.contains(host) ? "yes" : "no");
  tell("items on the bus", watcher(*bus, names));
  diagnoseBanners(*bus, tell);
}

void diagnoseLocation(const Tell& tell) {
  const auto bus = busAt(systemBusAddress(), "system bus", tell);
  if (!bus) return;
  const bool runs = namesOf(*bus, "ListNames").contains(kLocation);
  const bool starts = namesOf(*bus, "ListActivatableNames").contains(kLocation);
  tell("location service", runs ? "runs" : starts ? "there, started when asked" : "none");
}

}  // namespace Hilalor::Desktop
