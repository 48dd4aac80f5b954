#pragma once

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QObject>
#include <QVariantList>
#include <utility>

namespace Hilalor::Desktop {

/// A call of the bus itself, not of a program on it.
[[nodiscard]] inline QDBusMessage busCall(const char* method, const QVariantList& arguments = {}) {
  const auto bus = QStringLiteral("org.freedesktop.DBus");
  auto call = QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus,
                                             QLatin1String(method));
  call.setArguments(arguments);
  return call;
}

/// Hands the reply of a call under way to `answer`, good or bad, unless the receiver has gone by
/// then.
template <typename Answer>
void whenAnswered(const QDBusPendingCall& call, QObject* receiver, Answer answer) {
  auto* watcher = new QDBusPendingCallWatcher(call, receiver);  // NOLINT: the receiver owns it
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, receiver,
                   [answer = std::move(answer)](QDBusPendingCallWatcher* finished) mutable {
                     finished->deleteLater();
                     answer(static_cast<const QDBusPendingCall&>(*finished));
                   });
}

}  // namespace Hilalor::Desktop
