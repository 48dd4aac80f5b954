#pragma once

#include <functional>
#include <vector>

#include "platform/LocationService.hpp"

namespace Hilalor {

/// A location service that says what the test makes it say.
class FakeLocationService final : public LocationService {
 public:
  explicit FakeLocationService(AuthorizationStatus status = AuthorizationStatus::notDetermined)
      : status_(status) {}

  // LocationService
  void setDelegate(Delegate* delegate) override { delegate_ = delegate; }
  [[nodiscard]] AuthorizationStatus authorizationStatus() const override { return status_; }
  void requestLocation() override { ++locationRequests; }
  void requestWhenInUseAuthorization() override {
    ++authorizationRequests;
    if (onAuthorizationRequest) onAuthorizationRequest();
  }

  void askAgain() override { ++asksAgain; }

  void report(AuthorizationStatus status) {
    status_ = status;
    if (delegate_ != nullptr) delegate_->locationServiceDidChangeAuthorization();
  }

  void fix(const std::vector<LocationCoordinate>& locations) {
    if (delegate_ != nullptr) delegate_->locationServiceDidUpdate(locations);
  }

  void fail() {
    if (delegate_ != nullptr) delegate_->locationServiceDidFail();
  }

  void networkReturns() {
    if (delegate_ != nullptr) delegate_->locationServiceMayFindNow();
  }

  [[nodiscard]] bool hasDelegate() const { return delegate_ != nullptr; }

  int locationRequests = 0;
  int authorizationRequests = 0;
  int asksAgain = 0;
  std::function<void()> onAuthorizationRequest;

 private:
  AuthorizationStatus status_;
  Delegate* delegate_ = nullptr;
};

}  // namespace Hilalor
