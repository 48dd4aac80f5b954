#include "desktop/item/NotifierHost.hpp"

#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QRegularExpression>
#include <QStringList>
#include <utility>

#include "desktop/process/ProcessName.hpp"
#include "desktop/session/BusCall.hpp"

namespace Hilalor::Desktop {
namespace {

const QString kService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kPath = QStringLiteral("/StatusNotifierWatcher");

QDBusMessage propertyCall(const char* property) {
  auto call = QDBusMessage::createMethodCall(
      kService, kPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
  call << kService << QLatin1String(property);
  return call;
}

/// Whether one of a bar's items is of the connection. Bars put the path behind its name, each with
/// a sign of its own between.
bool names(const QStringList& items, const QString& connection) {
  const QRegularExpression name(QRegularExpression::escape(connection) + QStringLiteral("(?!\\d)"));
  return !items.filter(name).isEmpty();
}

}  // namespace

NotifierHost::NotifierHost(SessionBus& bus) : bus_(bus) {
  busChanged_ = bus_.changed.subscribe([this] { begin(); });
  if (bus_.isSettled()) begin();
}

void NotifierHost::begin() {
  ++generation_;
  watcher_.reset();
  if (!bus_.connection()) return setState(State::absent);
  if (state_ == State::present) setState(State::absent);
  auto connection = *bus_.connection();
  watcher_ = std::make_unique<QDBusServiceWatcher>(kService, connection);
  connect(watcher_.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
          [this](const QString&, const QString&, const QString& owner) { find(owner); });
  // From any sender: naming the service here would wait for the bus to tell who that is.
  for (const auto* signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
    connection.connect({}, kPath, kService, QLatin1String(signal), this, SLOT(askIfItShows()));
  }
  const auto call = connection.asyncCall(busCall("GetNameOwner", {kService}));
  whenAnswered(call, this, [this, generation = generation_](const QDBusPendingCall& answer) {
    const QDBusPendingReply<QString> owner = answer;
    if (generation == generation_) find(owner.isError() ? QString() : owner.value());
  });
}

void NotifierHost::find(const QString& owner) {
  ++generation_;
  if (owner.isEmpty()) return setState(State::absent);
  if (state_ == State::present) setState(State::absent);
  const auto call = bus_.connection()->asyncCall(busCall("GetConnectionUnixProcessID", {owner}));
  whenAnswered(call, this, [this, generation = generation_](const QDBusPendingCall& answer) {
    if (generation != generation_) return;
    const QDBusPendingReply<uint> process = answer;
    traits_ = NotifierTraits::of(
        process.isError() ? QString() : QString::fromStdString(processName(process.value())));
    askIfItShows();
  });
}

void NotifierHost::askIfItShows() {
  if (!bus_.connection()) return;
  const auto call = propertyCall("IsStatusNotifierHostRegistered");
  whenAnswered(bus_.connection()->asyncCall(call), this,
               [this, generation = generation_](const QDBusPendingCall& answer) {
                 if (generation != generation_) return;
                 const QDBusPendingReply<QDBusVariant> shows = answer;
                 // Some that show items do not have the property.
                 const bool isHost = shows.isError() || shows.value().variant().toBool();
                 setState(isHost ? State::present : State::absent);
               });
}

void NotifierHost::registerItem(const QString& name) const {
  if (!bus_.connection()) return;
  auto call = QDBusMessage::createMethodCall(kService, kPath, kService,
                                             QStringLiteral("RegisterStatusNotifierItem"));
  call << name;
  bus_.connection()->asyncCall(call);
}

void NotifierHost::lookForItem(const QString& name, QObject* owner,
                               std::function<void()> missing) const {
  if (!bus_.connection()) return;
  const auto call = propertyCall("RegisteredStatusNotifierItems");
  whenAnswered(bus_.connection()->asyncCall(call), owner,
               [name, missing = std::move(missing)](const QDBusPendingCall& answer) {
                 const QDBusPendingReply<QDBusVariant> items = answer;
                 if (items.isError()) return;
                 if (!names(items.value().variant().toStringList(), name)) missing();
               });
}

void NotifierHost::setState(State state) {
  if (std::exchange(state_, state) != state) changed.emit();
}

}  // namespace Hilalor::Desktop
