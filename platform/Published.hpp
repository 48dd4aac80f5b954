#pragma once

#include <functional>
#include <utility>

#include "platform/Signal.hpp"

namespace Hilalor {

/// A value whose every assignment is told: to the owner's watchers that something will change, then
/// to the value's own subscribers what it becomes, and only then is it in place. Assigning an equal
/// value is told like any other. Main thread.
template <typename Value>
class Published {
 public:
  using Subscriber = std::function<void(const Value&)>;

  explicit Published(Value value = {}, const Signal<>* ownerWillChange = nullptr)
      : value_(std::move(value)), ownerWillChange_(ownerWillChange) {}

  [[nodiscard]] const Value& value() const { return value_; }

  void assign(Value value) {
    if (ownerWillChange_ != nullptr) ownerWillChange_->emit();
    changes_.emit(value);
    value_ = std::move(value);
  }

  /// The subscriber gets the present value at once and then every assigned one, before it is in
  /// place.
  [[nodiscard]] Subscription subscribe(Subscriber subscriber) {
    subscriber(value_);
    return changes_.subscribe(std::move(subscriber));
  }

 private:
  Value value_;
  const Signal<>* ownerWillChange_;
  Signal<Value> changes_;
};

}  // namespace Hilalor
