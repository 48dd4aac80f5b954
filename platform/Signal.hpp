#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace Hilalor {

/// A place among a signal's subscribers, given up when the handle is dropped. May outlive the
/// signal.
class Subscription {
 public:
  Subscription() = default;
  explicit Subscription(std::function<void()> cancel) : cancel_(std::move(cancel)) {}
  Subscription(Subscription&& other) noexcept : cancel_(std::exchange(other.cancel_, nullptr)) {}
  Subscription& operator=(Subscription&& other) noexcept {
    if (this != &other) {
      end();
      cancel_ = std::exchange(other.cancel_, nullptr);
    }
    return *this;
  }
  ~Subscription() { end(); }

  void end() {
    if (auto cancel = std::exchange(cancel_, nullptr)) cancel();
  }

 private:
  std::function<void()> cancel_;
};

/// Tells its subscribers, in the order they came, on the thread that emits. A subscriber may come
/// or go while the signal is being emitted: one that came is told from the next time on, one that
/// went is not told any more.
template <typename... Values>
class Signal {
 public:
  using Subscriber = std::function<void(const Values&...)>;

  Signal() = default;
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;

  [[nodiscard]] Subscription subscribe(Subscriber subscriber) {
    const auto id = subscribers_->next++;
    subscribers_->byId.emplace(id, std::make_shared<Subscriber>(std::move(subscriber)));
    const std::weak_ptr<Subscribers> held = subscribers_;
    return Subscription([held, id] {
      if (const auto subscribers = held.lock()) subscribers->byId.erase(id);
    });
  }

  void emit(const Values&... values) const {
    // Held here, so that a subscriber may even destroy the signal's owner.
    const auto subscribers = subscribers_;
    std::vector<std::uint64_t> ids;
    ids.reserve(subscribers->byId.size());
    for (const auto& [id, subscriber] : subscribers->byId)
      ids.push_back(id);
    for (const auto id : ids) {
      const auto found = subscribers->byId.find(id);
      if (found == subscribers->byId.end()) continue;
      const auto subscriber = found->second;
      (*subscriber)(values...);
    }
  }

 private:
  struct Subscribers {
    std::uint64_t next = 0;
    std::map<std::uint64_t, std::shared_ptr<Subscriber>> byId;
  };
  std::shared_ptr<Subscribers> subscribers_ = std::make_shared<Subscribers>();
};

}  // namespace Hilalor
