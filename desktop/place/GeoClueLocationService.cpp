#include "desktop/place/GeoClueLocationService.hpp"

#include <QDBusPendingReply>
#include <QStringList>
#include <utility>

#include "desktop/process/ProgramId.hpp"
#include "desktop/session/BusCall.hpp"

namespace Hilalor::Desktop {
namespace {

const QString kService = QStringLiteral("org.freedesktop.GeoClue2");

// Some desktops do not keep the answer and ask the user each time. Twice is enough.
constexpr int kRefusalsToRespect = 2;

AuthorizationStatus statusAfter(GeoClueAnswer answer) {
  switch (answer) {
    case GeoClueAnswer::granted:
      return AuthorizationStatus::authorizedAlways;
    case GeoClueAnswer::refused:
    case GeoClueAnswer::refusedByUser:
      return AuthorizationStatus::denied;
    case GeoClueAnswer::unavailable:
      break;
  }
  return AuthorizationStatus::restricted;
}

}  // namespace

GeoClueLocationService::GeoClueLocationService(QDBusConnection bus, RunLoop& loop, Contact contact)
    : bus_(std::move(bus)), loop_(loop), isContactDue_(contact == Contact::atStart) {}

void GeoClueLocationService::useBus(QDBusConnection bus) {
  bus_ = std::move(bus);
  watcher_.reset();
  networkWatch_.reset();
  // Nothing is ever answered by a bus that is none.
  const bool isAsking = std::exchange(session_, nullptr) != nullptr;
  if (isAsking || status_ == AuthorizationStatus::restricted) beginSession();
}

void GeoClueLocationService::setDelegate(Delegate* delegate) {
  delegate_ = delegate;
  if (delegate == nullptr) return;
  loop_.post(lifetime_.whileAlive([this] {
    if (delegate_ != nullptr) delegate_->locationServiceDidChangeAuthorization();
  }));
  if (std::exchange(isContactDue_, false)) beginSession();
}

void GeoClueLocationService::requestLocation() {
  isLocationWanted_ = true;
  if (session_) return;
  if (status_ == AuthorizationStatus::authorizedAlways) return beginSession();
  loop_.post(lifetime_.whileAlive([this] {
    if (!session_) deliver(std::nullopt);
  }));
}

void GeoClueLocationService::requestWhenInUseAuthorization() {
  if (!session_ && status_ != AuthorizationStatus::authorizedAlways) beginSession();
}

void GeoClueLocationService::askAgain() {
  const bool isRefused =
      status_ == AuthorizationStatus::denied || status_ == AuthorizationStatus::restricted;
  if (isRefused && !session_ && refusalsByUser_ < kRefusalsToRespect) beginSession();
}

void GeoClueLocationService::beginSession() {
  isContactDue_ = false;
  watchService();
  session_ = std::make_unique<GeoClueSession>(
      bus_, kProgramId, loop_,
      GeoClueSession::Callbacks{
          [this](GeoClueAnswer answer) { answered(answer); },
          [this](std::optional<LocationCoordinate> coordinate) { ended(coordinate); }});
}

void GeoClueLocationService::watchService() {
  if (watcher_) return;
  watcher_ = std::make_unique<QDBusServiceWatcher>(kService, bus_);
  QObject::connect(watcher_.get(), &QDBusServiceWatcher::serviceRegistered, watcher_.get(),
                   [this] { serviceAppeared(); });
  QObject::connect(watcher_.get(), &QDBusServiceWatcher::serviceUnregistered, watcher_.get(),
                   [this] { serviceVanished(); });
}

void GeoClueLocationService::answered(GeoClueAnswer answer) {
  refusalsByUser_ = answer == GeoClueAnswer::refusedByUser ? refusalsByUser_ + 1 : 0;
  setStatus(statusAfter(answer));
}

void GeoClueLocationService::ended(std::optional<LocationCoordinate> coordinate) {
  session_.release()->deleteLater();
  if (coordinate) {
    networkWatch_.reset();
  } else if (!networkWatch_ && status_ == AuthorizationStatus::authorizedAlways) {
    networkWatch_ = std::make_unique<NetworkWatch>(bus_, [this] {
      if (delegate_ != nullptr) delegate_->locationServiceMayFindNow();
    });
  }
  deliver(coordinate);
}

void GeoClueLocationService::deliver(std::optional<LocationCoordinate> coordinate) {
  if (!std::exchange(isLocationWanted_, false) || delegate_ == nullptr) return;
  if (coordinate) {
    delegate_->locationServiceDidUpdate({*coordinate});
  } else {
    delegate_->locationServiceDidFail();
  }
}

void GeoClueLocationService::serviceAppeared() {
  if (!session_ && status_ == AuthorizationStatus::restricted) beginSession();
}

void GeoClueLocationService::serviceVanished() {
  if (session_) session_->serviceVanished();
  // A service that the bus starts when it is called goes whenever it is idle.
  whenAnswered(bus_.asyncCall(busCall("ListActivatableNames")), watcher_.get(),
               [this](const QDBusPendingCall& answer) {
                 const QDBusPendingReply<QStringList> names = answer;
                 if (!session_ && !names.value().contains(kService)) {
                   setStatus(AuthorizationStatus::restricted);
                 }
               });
}

void GeoClueLocationService::setStatus(AuthorizationStatus status) {
  if (std::exchange(status_, status) == status) return;
  if (delegate_ != nullptr) delegate_->locationServiceDidChangeAuthorization();
}

}  // namespace Hilalor::Desktop
