#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <memory>
#include <optional>

#include "desktop/place/GeoClueSession.hpp"
#include "desktop/place/NetworkWatch.hpp"
#include "platform/Lifetime.hpp"
#include "platform/LocationService.hpp"
#include "platform/RunLoop.hpp"

namespace Hilalor::Desktop {

/// The user's place by GeoClue on the system bus. Each request is a session of its own: one
/// position, and the service is left alone again. Nothing is kept on the disk and nothing blocks.
///
/// The status is restricted where there is no service or nobody on the desktop to ask the user,
/// denied where the user or the desktop refuses, authorised where the service starts. It follows
/// the service as that comes and goes. No desktop tells that a refusal was taken back. The network
/// is watched only from a request without a position to the next with one. Main thread.
class GeoClueLocationService final : public LocationService {
 public:
  /// When the service is first spoken to.
  enum class Contact {
    whenAsked,  ///< Not before the first request: the user has not been asked yet.
    atStart,    ///< The user has been asked in an earlier run; the answer is found out again.
  };

  GeoClueLocationService(QDBusConnection bus, RunLoop& loop, Contact contact);

  /// Goes on on another bus: the one before was none.
  void useBus(QDBusConnection bus);

  void setDelegate(Delegate* delegate) override;
  [[nodiscard]] AuthorizationStatus authorizationStatus() const override { return status_; }
  void requestLocation() override;
  void requestWhenInUseAuthorization() override;
  void askAgain() override;

 private:
  void beginSession();
  void watchService();
  void answered(GeoClueAnswer answer);
  void ended(std::optional<LocationCoordinate> coordinate);
  void deliver(std::optional<LocationCoordinate> coordinate);
  void serviceAppeared();
  void serviceVanished();
  void setStatus(AuthorizationStatus status);

  QDBusConnection bus_;
  RunLoop& loop_;
  AuthorizationStatus status_ = AuthorizationStatus::notDetermined;
  Delegate* delegate_ = nullptr;
  bool isContactDue_;
  bool isLocationWanted_ = false;
  int refusalsByUser_ = 0;  // One after another.
  std::unique_ptr<NetworkWatch> networkWatch_;
  std::unique_ptr<QDBusServiceWatcher> watcher_;
  std::unique_ptr<GeoClueSession> session_;
  Lifetime lifetime_;
};

}  // namespace Hilalor::Desktop
