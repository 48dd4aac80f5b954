#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "platform/NotificationCenter.hpp"
#include "platform/RunLoop.hpp"

namespace Hilalor {

/// A notification centre that keeps what it is to show; it answers on the loop's next pass.
class FakeNotificationCenter final : public NotificationCenter {
 public:
  explicit FakeNotificationCenter(RunLoop& loop) : loop_(loop) {}

  // NotificationCenter
  void setDelegate(Delegate* hears) override { delegate = hears; }

  void requestAuthorization(NotificationOptions options,
                            std::function<void(bool)> answer) override {
    requestedOptions.push_back(options);
    loop_.post([this, answer = std::move(answer)] {
      answer(status == NotificationAuthorization::authorized);
    });
  }

  void authorizationStatus(std::function<void(NotificationAuthorization)> answer) override {
    loop_.post([this, answer = std::move(answer)] { answer(status); });
  }

  void add(const NotificationRequest& request) override { shown.push_back(request); }

  NotificationAuthorization status = NotificationAuthorization::authorized;
  std::vector<NotificationRequest> shown;
  std::vector<NotificationOptions> requestedOptions;
  Delegate* delegate = nullptr;

 private:
  RunLoop& loop_;
};

}  // namespace Hilalor
