#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "platform/NotificationCenter.hpp"
#include "platform/RunLoop.hpp"
#include "platform/SoundService.hpp"

namespace Hilalor {

/// A desktop without banners.
class AbsentNotificationCenter final : public NotificationCenter {
 public:
  explicit AbsentNotificationCenter(RunLoop& loop) : loop_(loop) {}
  void setDelegate(Delegate*) override {}
  void requestAuthorization(NotificationOptions, std::function<void(bool)> answer) override {
    loop_.post([answer = std::move(answer)] { answer(false); });
  }
  void authorizationStatus(std::function<void(NotificationAuthorization)> answer) override {
    loop_.post([answer = std::move(answer)] { answer(NotificationAuthorization::denied); });
  }
  void add(const NotificationRequest&) override {}

 private:
  RunLoop& loop_;
};

/// A machine without sounds.
class AbsentSoundService final : public SoundService {
 public:
  [[nodiscard]] std::optional<std::filesystem::path> resource(std::string_view,
                                                              std::string_view) const override {
    return std::nullopt;
  }
  [[nodiscard]] std::shared_ptr<AudioPlayer> player(const std::filesystem::path&) const override {
    return nullptr;
  }
  [[nodiscard]] std::unique_ptr<SystemSound> soundNamed(std::string_view) const override {
    return nullptr;
  }
  void beep() override {}
};

}  // namespace Hilalor
