#pragma once

#include <compare>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <type_traits>
#include <variant>

#include "platform/DefaultsStore.hpp"

namespace Hilalor::Desktop {

/// A place in the store: a key, or one entry of the dictionary under it.
struct DefaultsPlace {
  std::string key;
  std::optional<std::string> entry;

  friend auto operator<=>(const DefaultsPlace&, const DefaultsPlace&) = default;
};

/// Stands at a key whose value is the dictionary of its entries.
struct DictionaryMark {
  friend bool operator==(const DictionaryMark&, const DictionaryMark&) = default;
};

using StoredValue =
    std::variant<bool, std::int64_t, double, std::string, OpaqueValue, DictionaryMark>;

/// A whole store in memory. A key comes right before its entries.
using DefaultsContent = std::map<DefaultsPlace, StoredValue>;

/// The plain value under the key; none where there is none or a dictionary stands there.
[[nodiscard]] inline std::optional<DefaultsValue> plainValue(const DefaultsContent& content,
                                                             const std::string& key) {
  const auto found = content.find({key, std::nullopt});
  if (found == content.end()) return std::nullopt;
  return std::visit(
      [](const auto& stored) -> std::optional<DefaultsValue> {
        if constexpr (std::is_same_v<decltype(stored), const DictionaryMark&>) {
          return std::nullopt;
        } else {
          return stored;
        }
      },
      found->second);
}

/// Places whose value in memory, or whose absence, is not on the disk yet.
using UnwrittenPlaces = std::set<DefaultsPlace>;

}  // namespace Hilalor::Desktop
