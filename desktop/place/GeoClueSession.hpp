#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QObject>
#include <QString>
#include <QVariantMap>
#include <functional>
#include <memory>
#include <optional>

#include "platform/LocationService.hpp"
#include "platform/RunLoop.hpp"

class QDBusPendingCallWatcher;

namespace Hilalor::Desktop {

/// What GeoClue says to a program that asks for the user's place.
enum class GeoClueAnswer {
  unavailable,    ///< There is no such service, or nobody on this desktop to ask the user.
  refused,        ///< By what the desktop has in its settings.
  refusedByUser,  ///< After a while, in which the user was asked.
  granted,
};

/// One conversation with GeoClue: asks for a client, starts it, waits a minute for a position good
/// enough for a town's prayer times and gives the client back. A minute without one ends with the
/// best there was. Never blocks. Main thread.
class GeoClueSession final : public QObject {
  Q_OBJECT

 public:
  struct Callbacks {
    /// Whether we may know the place. Told more than once where the service answers after it was
    /// given up on as unavailable.
    std::function<void(GeoClueAnswer)> answered;
    /// The end: the best position, or none could be had. Nothing is told after it. The session may
    /// be let go here, but by `deleteLater` only.
    std::function<void(std::optional<LocationCoordinate>)> ended;
  };

  /// The identifier is the name of the program's installed `.desktop` file.
  GeoClueSession(QDBusConnection bus, QString desktopId, RunLoop& loop, Callbacks callbacks);
  ~GeoClueSession() override;

  /// Ends the session with what it has where the service went away.
  void serviceVanished();

 private Q_SLOTS:
  void locationUpdated(const QDBusObjectPath& before, const QDBusObjectPath& now);

 private:
  /// Where the machine is, and within how many metres; infinitely many where nobody knows.
  struct Position {
    LocationCoordinate coordinate;
    double accuracy;
  };
  using Reply = void (GeoClueSession::*)(const QDBusMessage& reply);

  void call(const QDBusMessage& message, Reply handle);
  void clientArrived(const QDBusMessage& reply);
  void started(const QDBusMessage& reply);
  void endWithout(const QDBusMessage& refusal);
  void positionArrived(const QDBusMessage& reply);
  void setProperty(const QString& name, const QVariant& value);
  [[nodiscard]] static std::optional<Position> positionIn(const QVariantMap& properties);
  void end();
  void giveClientBack();

  QDBusConnection bus_;
  QString desktopId_;
  RunLoop& loop_;
  Callbacks callbacks_;
  bool hasEnded_ = false;
  bool isUserAsked_ = false;
  QString client_;
  std::optional<Position> best_;
  std::unique_ptr<Timer> patience_;
};

}  // namespace Hilalor::Desktop
