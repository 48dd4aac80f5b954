#pragma once

#include <map>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/DefaultsStore.hpp"

namespace Hilalor {

/// A store without a disk, which remembers what was written to it, call by call.
class InMemoryDefaultsStore final : public DefaultsStore {
 public:
  /// Which keys the program wrote, in order and as often as it wrote them; an entry of a dictionary
  /// as "key/entry".
  std::vector<std::string> writes;

  /// Whether the disk that it stands for could be read.
  bool hasRead = true;

  // DefaultsStore
  [[nodiscard]] bool isRead() const override { return hasRead; }
  void lookAgain() override {}
  [[nodiscard]] std::optional<DefaultsValue> value(std::string_view key) const override {
    return read<DefaultsValue>(key);
  }

  void setValue(std::string_view key, const DefaultsValue& value) override {
    writes.emplace_back(key);
    stored_.insert_or_assign(std::string(key), value);
  }

  [[nodiscard]] std::optional<TextDictionary> dictionary(std::string_view key) const override {
    return read<TextDictionary>(key);
  }

  void setDictionary(std::string_view key, const TextDictionary& dictionary) override {
    writes.emplace_back(key);
    stored_.insert_or_assign(std::string(key), dictionary);
  }

  void setEntry(std::string_view key, std::string_view entry,
                const std::optional<std::string>& text) override {
    writes.push_back(std::string(key) + '/' + std::string(entry));
    auto& stored = stored_[std::string(key)];
    if (!std::holds_alternative<TextDictionary>(stored)) stored = TextDictionary();
    auto& entries = std::get<TextDictionary>(stored);
    entries.erase(std::string(entry));
    if (text) entries.emplace(entry, *text);
  }

 private:
  template <typename Kind>
  [[nodiscard]] std::optional<Kind> read(std::string_view key) const {
    const auto found = stored_.find(key);
    if (found == stored_.end() || !std::holds_alternative<Kind>(found->second)) return std::nullopt;
    return std::get<Kind>(found->second);
  }

  std::map<std::string, std::variant<DefaultsValue, TextDictionary>, std::less<>> stored_;
};

}  // namespace Hilalor
