#include "desktop/place/GeoClueSession.hpp"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusVariant>
#include <limits>
#include <utility>

#include "desktop/session/BusCall.hpp"

namespace Hilalor::Desktop {
namespace {

const QString kService = QStringLiteral("org.freedesktop.GeoClue2");
const QString kManagerPath = QStringLiteral("/org/freedesktop/GeoClue2/Manager");
const QString kManager = QStringLiteral("org.freedesktop.GeoClue2.Manager");
const QString kClient = QStringLiteral("org.freedesktop.GeoClue2.Client");
const QString kLocation = QStringLiteral("org.freedesktop.GeoClue2.Location");
const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");

// Without an agent to ask the user the service leaves the first call without an answer.
constexpr Seconds kAnswerPatience{5};
constexpr Seconds kPositionPatience{60};

// A desktop that knows the answer gives it at once; a user has to read the question.
constexpr Seconds kKnownAnswer{1};

// The user may take their time to answer; where the service dies the bus answers in its place.
constexpr int kNoTimeout = std::numeric_limits<int>::max();

// The service starts only sources no better than the level that is asked for. Below this one, a
// satellite receiver or the wireless networks around are left out, and what remains is where the
// network address is registered, which can be another town.
constexpr unsigned kAccuracyLevel = 8;

// Metres within which the prayer times are those of the place, to a few seconds. The first position
// is often where the network's owner sits, hundreds of kilometres off, and the good one follows.
constexpr double kGoodAccuracy = 3000;

QDBusMessage managerCall(const QString& method) {
  return QDBusMessage::createMethodCall(kService, kManagerPath, kManager, method);
}

bool isRefusal(const QDBusMessage& reply) {
  return reply.errorName() == QDBusError::errorString(QDBusError::AccessDenied);
}

}  // namespace

GeoClueSession::GeoClueSession(QDBusConnection bus, QString desktopId, RunLoop& loop,
                               Callbacks callbacks)
    : bus_(std::move(bus)),
      desktopId_(std::move(desktopId)),
      loop_(loop),
      callbacks_(std::move(callbacks)) {
  patience_ =
      loop_.once(kAnswerPatience, [this] { callbacks_.answered(GeoClueAnswer::unavailable); });
  call(managerCall(QStringLiteral("GetClient")), &GeoClueSession::clientArrived);
}

GeoClueSession::~GeoClueSession() {
  giveClientBack();
}

void GeoClueSession::serviceVanished() {
  client_.clear();
  end();
}

void GeoClueSession::call(const QDBusMessage& message, Reply handle) {
  whenAnswered(bus_.asyncCall(message, kNoTimeout), this,
               [this, handle](const QDBusPendingCall& answer) {
                 if (!hasEnded_) (this->*handle)(answer.reply());
               });
}

void GeoClueSession::clientArrived(const QDBusMessage& reply) {
  patience_.reset();
  const auto path = reply.arguments().value(0).value<QDBusObjectPath>().path();
  if (reply.type() == QDBusMessage::ErrorMessage || path.isEmpty()) {
    return endWithout(reply);
  }
  client_ = path;
  bus_.connect(kService, client_, kClient, QStringLiteral("LocationUpdated"), this,
               SLOT(locationUpdated(QDBusObjectPath, QDBusObjectPath)));
  setProperty(QStringLiteral("DesktopId"), desktopId_);
  setProperty(QStringLiteral("RequestedAccuracyLevel"), kAccuracyLevel);
  call(QDBusMessage::createMethodCall(kService, client_, kClient, QStringLiteral("Start")),
       &GeoClueSession::started);
  patience_ = loop_.once(kKnownAnswer, [this] { isUserAsked_ = true; });
}

void GeoClueSession::setProperty(const QString& name, const QVariant& value) {
  auto message =
      QDBusMessage::createMethodCall(kService, client_, kProperties, QStringLiteral("Set"));
  message << kClient << name << QVariant::fromValue(QDBusVariant(value));
  bus_.send(message);
}

void GeoClueSession::started(const QDBusMessage& reply) {
  if (reply.type() == QDBusMessage::ErrorMessage) {
    return endWithout(reply);
  }
  patience_ = loop_.once(kPositionPatience, [this] { end(); });
  callbacks_.answered(GeoClueAnswer::granted);
}

void GeoClueSession::endWithout(const QDBusMessage& refusal) {
  if (!isRefusal(refusal)) {
    callbacks_.answered(GeoClueAnswer::unavailable);
  } else {
    callbacks_.answered(isUserAsked_ ? GeoClueAnswer::refusedByUser : GeoClueAnswer::refused);
  }
  end();
}

void GeoClueSession::locationUpdated(const QDBusObjectPath&, const QDBusObjectPath& now) {
  auto message =
      QDBusMessage::createMethodCall(kService, now.path(), kProperties, QStringLiteral("GetAll"));
  call(message << kLocation, &GeoClueSession::positionArrived);
}

void GeoClueSession::positionArrived(const QDBusMessage& reply) {
  const auto position = positionIn(qdbus_cast<QVariantMap>(reply.arguments().value(0)));
  if (!position) return;
  if (!best_ || position->accuracy <= best_->accuracy) best_ = position;
  if (best_->accuracy <= kGoodAccuracy) end();
}

std::optional<GeoClueSession::Position> GeoClueSession::positionIn(const QVariantMap& properties) {
  const auto latitude = properties.value(QStringLiteral("Latitude"));
  const auto longitude = properties.value(QStringLiteral("Longitude"));
  if (!latitude.isValid() || !longitude.isValid()) return std::nullopt;
  const LocationCoordinate coordinate{latitude.toDouble(), longitude.toDouble()};
  // A position that cannot be is no answer; the next one may be.
  if (!isOnGlobe(coordinate)) return std::nullopt;
  // The service writes an accuracy that it does not know as a negative one.
  const auto accuracy = properties.value(QStringLiteral("Accuracy"), -1.0).toDouble();
  return Position{coordinate, accuracy >= 0 ? accuracy : std::numeric_limits<double>::infinity()};
}

void GeoClueSession::end() {
  if (std::exchange(hasEnded_, true)) return;
  patience_.reset();
  giveClientBack();
  callbacks_.ended(best_ ? std::optional(best_->coordinate) : std::nullopt);
}

void GeoClueSession::giveClientBack() {
  if (client_.isEmpty()) return;
  bus_.send(QDBusMessage::createMethodCall(kService, client_, kClient, QStringLiteral("Stop")));
  bus_.send(managerCall(QStringLiteral("DeleteClient"))
            << QVariant::fromValue(QDBusObjectPath(client_)));
  client_.clear();
}

}  // namespace Hilalor::Desktop
