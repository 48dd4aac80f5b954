#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QString>
#include <QVariantMap>
#include <optional>
#include <string>
#include <vector>

#include "platform/LocationService.hpp"

namespace Hilalor::Desktop {

/// GeoClue as its clients see it: writes down what they ask and answers as the test says.
class FakeGeoClue final : public QDBusVirtualObject {
 public:
  enum class Agent { allows, refuses, asks, absent };

  FakeGeoClue(QDBusConnection bus, Agent agent) : bus_(std::move(bus)), agent_(agent) {
    bus_.registerVirtualObject(QStringLiteral("/org/freedesktop/GeoClue2"), this,
                               QDBusConnection::SubPath);
    bus_.registerService(QStringLiteral("org.freedesktop.GeoClue2"));
  }
  ~FakeGeoClue() override { QDBusConnection::disconnectFromBus(bus_.name()); }

  /// What was asked, in order: "GetClient", "DesktopId=org.hilalor.Hilalor", "Start" and so on.
  std::vector<std::string> calls;

  struct Position {
    LocationCoordinate coordinate;
    double accuracy = 1000;  ///< Metres.
  };

  /// Positions that a started client is told of, one after another.
  std::vector<Position> positions;

  void setAgent(Agent agent) { agent_ = agent; }

  /// What the user says to an agent that asks.
  void userRefuses() { refuse(*waiting_, bus_); }

  /// An agent comes, and the client that waits for one gets its answer.
  void agentArrives() {
    agent_ = Agent::allows;
    if (waiting_) bus_.send(waiting_->createReply(QVariant::fromValue(QDBusObjectPath(kClient))));
  }

  void tell(Position position) {
    told_.push_back(position);
    const auto path = QDBusObjectPath(kLocations + QString::number(told_.size() - 1));
    auto signal =
        QDBusMessage::createSignal(kClient, QStringLiteral("org.freedesktop.GeoClue2.Client"),
                                   QStringLiteral("LocationUpdated"));
    bus_.send(signal << QVariant::fromValue(QDBusObjectPath("/")) << QVariant::fromValue(path));
  }

  [[nodiscard]] QString introspect(const QString&) const override { return {}; }

  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    const auto member = message.member();
    if (member == QStringLiteral("GetAll")) return bus.send(message.createReply(location(message)));
    if (member == QStringLiteral("Set")) {
      const auto value = message.arguments().at(2).value<QDBusVariant>().variant().toString();
      calls.push_back((message.arguments().at(1).toString() + "=" + value).toStdString());
      return bus.send(message.createReply());
    }
    calls.push_back(member.toStdString());
    if (member == QStringLiteral("GetClient")) return giveClient(message, bus);
    if (member == QStringLiteral("Start")) return start(message, bus);
    return bus.send(message.createReply());
  }

 private:
  static inline const QString kClient = QStringLiteral("/org/freedesktop/GeoClue2/Client/1");
  static inline const QString kLocations =
      QStringLiteral("/org/freedesktop/GeoClue2/Client/1/Location/");

  bool giveClient(const QDBusMessage& message, const QDBusConnection& bus) {
    if (agent_ == Agent::absent) {
      waiting_ = message;
      return true;
    }
    return bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(kClient))));
  }

  bool start(const QDBusMessage& message, const QDBusConnection& bus) {
    if (agent_ == Agent::refuses) return refuse(message, bus);
    if (agent_ == Agent::asks) {
      waiting_ = message;
      return true;
    }
    bus.send(message.createReply());
    for (const auto& position : positions)
      tell(position);
    return true;
  }

  static bool refuse(const QDBusMessage& message, const QDBusConnection& bus) {
    return bus.send(message.createErrorReply(
        QStringLiteral("org.freedesktop.DBus.Error.AccessDenied"), QStringLiteral("refused")));
  }

  [[nodiscard]] QVariant location(const QDBusMessage& message) const {
    const auto number = message.path().mid(kLocations.size()).toULong();
    const auto& [coordinate, accuracy] = told_.at(number);
    return QVariantMap{{QStringLiteral("Latitude"), coordinate.latitude},
                       {QStringLiteral("Longitude"), coordinate.longitude},
                       {QStringLiteral("Accuracy"), accuracy}};
  }

  QDBusConnection bus_;
  Agent agent_;
  std::optional<QDBusMessage> waiting_;
  std::vector<Position> told_;
};

}  // namespace Hilalor::Desktop
