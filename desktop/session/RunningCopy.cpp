#include "desktop/session/RunningCopy.hpp"

#include <QDBusMessage>
#include <QVariantList>
#include <QVariantMap>

#include "desktop/process/ProgramId.hpp"
#include "desktop/session/BusProbe.hpp"

namespace Hilalor::Desktop {
namespace {

bool answers(const QDBusConnection& bus, const char* method, const QVariantList& before) {
  auto call = QDBusMessage::createMethodCall(kProgramId, kBusPath, kApplicationInterface, method);
  call.setArguments(before + QVariantList{QVariantMap{{kTokenKey, qEnvironmentVariable(kToken)}}});
  call.setAutoStartService(false);
  constexpr int kMillisecondsToAnswer = 1000;
  return bus.call(call, QDBus::Block, kMillisecondsToAnswer).type() == QDBusMessage::ReplyMessage;
}

}  // namespace

bool showRunningCopy(const QDBusConnection& bus) {
  return answers(bus, "Activate", {});
}

bool tellRunningCopy(std::string_view word) {
  if (sessionBusAddress().empty()) return false;
  const auto bus = QDBusConnection::sessionBus();
  if (word == "panel") return showRunningCopy(bus);
  const auto action = QString::fromUtf8(word.data(), static_cast<qsizetype>(word.size()));
  return answers(bus, "ActivateAction", {action, QVariantList()});
}

}  // namespace Hilalor::Desktop
