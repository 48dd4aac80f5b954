#include "desktop/session/RunningCopy.hpp"

#include <QDBusError>
#include <QDBusMessage>
#include <QVariantList>
#include <QVariantMap>

#include "desktop/process/ProgramId.hpp"
#include "desktop/session/BusProbe.hpp"

namespace Hilalor::Desktop {
namespace {

CopyAnswer ask(const QDBusConnection& bus, const char* method, const QVariantList& before) {
  auto call = QDBusMessage::createMethodCall(kProgramId, kBusPath, kApplicationInterface, method);
  call.setArguments(before + QVariantList{QVariantMap{{kTokenKey, qEnvironmentVariable(kToken)}}});
  call.setAutoStartService(false);
  constexpr int kMillisecondsToAnswer = 1000;
  const auto reply = bus.call(call, QDBus::Block, kMillisecondsToAnswer);
  if (reply.type() == QDBusMessage::ReplyMessage) return CopyAnswer::done;
  // What buses say of a name without an owner where none is to be started.
  const auto noOwner = QStringLiteral("org.freedesktop.DBus.Error.NameHasNoOwner");
  if (reply.errorName() == noOwner) return CopyAnswer::isEnding;
  for (const auto goes : {QDBusError::UnknownObject, QDBusError::ServiceUnknown})
    if (reply.errorName() == QDBusError::errorString(goes)) return CopyAnswer::isEnding;
  return CopyAnswer::none;
}

}  // namespace

CopyAnswer showRunningCopy(const QDBusConnection& bus) {
  return ask(bus, "Activate", {});
}

CopyAnswer tellRunningCopy(std::string_view word) {
  constexpr std::chrono::seconds kPatienceWithBus{3};
  const auto address = sessionBusAddress();
  if (address.empty()) return CopyAnswer::isEnding;
  // Qt waits for a bus that stands still as long as that does.
  if (!busAnswers(address, kPatienceWithBus)) return CopyAnswer::none;
  const auto bus = QDBusConnection::sessionBus();
  if (word == "panel") return showRunningCopy(bus);
  const auto action = QString::fromUtf8(word.data(), static_cast<qsizetype>(word.size()));
  return ask(bus, "ActivateAction", {action, QVariantList()});
}

}  // namespace Hilalor::Desktop
