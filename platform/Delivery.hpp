#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

#include "platform/Published.hpp"
#include "platform/RunLoop.hpp"
#include "platform/Signal.hpp"

namespace Hilalor {

/// Wraps a subscriber so that it hears of a value on the next pass of the loop, when the value is
/// in place. Nothing is delivered once the last copy of the returned subscriber has been dropped.
template <typename Subscriber>
[[nodiscard]] auto onNextPass(RunLoop& loop, Subscriber subscriber) {
  auto kept = std::make_shared<const Subscriber>(std::move(subscriber));
  return [&loop, kept](const auto&... values) {
    loop.post([weak = std::weak_ptr(kept), values...] {
      if (const auto alive = weak.lock()) (*alive)(values...);
    });
  };
}

/// The latest value of each of two, told once for the present pair and then at every assignment of
/// either. `dropped` leaves the present pair out.
enum class FirstPair { told, dropped };

template <typename One, typename Other>
[[nodiscard]] std::pair<Subscription, Subscription> subscribeToLatest(
    Published<One>& one, Published<Other>& other, FirstPair first,
    std::type_identity_t<std::function<void(const One&, const Other&)>> subscriber) {
  struct Latest {
    std::optional<One> one;
    std::optional<Other> other;
    bool dropNext;
    std::function<void(const One&, const Other&)> subscriber;

    void tell() {
      if (!one || !other) return;
      if (std::exchange(dropNext, false)) return;
      subscriber(*one, *other);
    }
  };
  auto latest = std::make_shared<Latest>(
      Latest{std::nullopt, std::nullopt, first == FirstPair::dropped, std::move(subscriber)});
  auto ofOne = one.subscribe([latest](const One& value) {
    latest->one = value;
    latest->tell();
  });
  auto ofOther = other.subscribe([latest](const Other& value) {
    latest->other = value;
    latest->tell();
  });
  return {std::move(ofOne), std::move(ofOther)};
}

}  // namespace Hilalor
