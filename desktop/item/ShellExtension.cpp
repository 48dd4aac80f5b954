#include "desktop/item/ShellExtension.hpp"

#include <QDBusPendingReply>
#include <utility>

#include "desktop/session/BusCall.hpp"

namespace Hilalor::Desktop {
namespace {

const QString kName = QStringLiteral("org.hilalor.Hilalor.Host");

}  // namespace

ShellExtension::ShellExtension(SessionBus& bus) : bus_(bus) {
  busChanged_ = bus_.changed.subscribe([this] { begin(); });
  if (bus_.isSettled()) begin();
}

void ShellExtension::begin() {
  watcher_.reset();
  setThere(false);
  if (!bus_.connection()) return;
  watcher_ = std::make_unique<QDBusServiceWatcher>(kName, *bus_.connection());
  connect(watcher_.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
          [this](const QString&, const QString&, const QString& owner) { find(owner); });
  // Goes with the watcher, so that it is not heard after a change of the bus.
  whenAnswered(bus_.connection()->asyncCall(busCall("NameHasOwner", {kName})), watcher_.get(),
               [this](const QDBusPendingCall& answer) {
                 const QDBusPendingReply<bool> hasOwner = answer;
                 if (!hasOwner.isError()) setThere(hasOwner.value());
               });
}

void ShellExtension::find(const QString& owner) {
  setThere(false);
  setThere(!owner.isEmpty());
}

void ShellExtension::setThere(bool isThere) {
  if (std::exchange(isThere_, isThere) != isThere) changed.emit();
}

}  // namespace Hilalor::Desktop
