#pragma once

#include <filesystem>

#include "desktop/store/DefaultsContent.hpp"
#include "platform/DefaultsStore.hpp"

namespace Hilalor::Desktop {

/// What the file of a defaults store holds, for one who only looks: also while the program runs,
/// when the file is damaged, and when another holds its lock. On the disk nothing is written, made
/// or set aside; what is set here stays in memory. Main thread.
class DefaultsView final : public DefaultsStore {
 public:
  /// Reads all at once. Empty where there is no such file or nothing of it can be read.
  explicit DefaultsView(const std::filesystem::path& file);

  // DefaultsStore
  [[nodiscard]] bool isRead() const override { return true; }
  void lookAgain() override {}
  [[nodiscard]] std::optional<DefaultsValue> value(std::string_view key) const override;
  void setValue(std::string_view key, const DefaultsValue& value) override;
  /// None: who only looks has no use for notes.
  [[nodiscard]] std::optional<TextDictionary> dictionary(std::string_view) const override {
    return std::nullopt;
  }
  void setDictionary(std::string_view, const TextDictionary&) override {}
  void setEntry(std::string_view, std::string_view, const std::optional<std::string>&) override {}

 private:
  DefaultsContent content_;
};

}  // namespace Hilalor::Desktop
