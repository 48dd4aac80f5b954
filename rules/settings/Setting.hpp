#pragma once

#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>

#include "platform/DefaultsStore.hpp"
#include "platform/Published.hpp"
#include "rules/settings/SettingsValues.hpp"

namespace Hilalor {

/// One preference: a published value that is written to the store whenever it is assigned, also
/// when it is assigned what it was. Reading it never writes. It follows the store when values come
/// in there. Main thread.
template <typename Value>
class Setting {
 public:
  /// Whether a stored value is one that the preference can have.
  using Condition = bool (*)(const Value&);

  /// Loads the value under the key, or takes the default where there is none of its type or it
  /// does not fulfil the condition, if there is one.
  Setting(DefaultsStore& store, const Signal<>& ownerWillChange, const char* key, Value byDefault,
          Condition isPossible = nullptr)
      : store_(store),
        key_(key),
        byDefault_(std::move(byDefault)),
        isPossible_(isPossible),
        value_(loaded(), &ownerWillChange),
        cameIn_(store.cameIn.subscribe([this] { reload(); })) {}

  [[nodiscard]] const Value& value() const { return value_.value(); }
  operator const Value&() const { return value(); }

  Setting& operator=(Value value) {
    value_.assign(std::move(value));
    store_.setValue(key_, stored());
    return *this;
  }

  /// Tells the changes of this preference; a subscriber hears of a new value before it is in place.
  [[nodiscard]] Published<Value>& publisher() { return value_; }

 private:
  void reload() {
    auto stored = loaded();
    if (stored != value()) value_.assign(std::move(stored));
  }

  [[nodiscard]] Value loaded() const {
    auto found = read();
    return isPossible_ == nullptr || isPossible_(found) ? std::move(found) : byDefault_;
  }

  [[nodiscard]] Value read() const {
    if constexpr (std::is_enum_v<Value>) {
      return fromRawValue<Value>(store_.string(key_).value_or("")).value_or(byDefault_);
    } else if constexpr (std::is_same_v<Value, bool>) {
      return store_.boolean(key_).value_or(byDefault_);
    } else if constexpr (std::is_same_v<Value, std::int64_t>) {
      return store_.integer(key_).value_or(byDefault_);
    } else if constexpr (std::is_same_v<Value, double>) {
      return store_.number(key_);
    } else {
      return store_.string(key_).value_or(byDefault_);
    }
  }

  [[nodiscard]] DefaultsValue stored() const {
    if constexpr (std::is_enum_v<Value>) {
      return std::string(rawValue(value()));
    } else {
      return value();
    }
  }

  DefaultsStore& store_;
  const char* key_;
  Value byDefault_;
  Condition isPossible_;
  Published<Value> value_;
  Subscription cameIn_;
};

}  // namespace Hilalor
