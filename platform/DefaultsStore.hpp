#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "platform/Published.hpp"
#include "platform/Signal.hpp"

namespace Hilalor {

/// A stored value that is neither of the plain types nor a dictionary of texts.
struct OpaqueValue {
  friend bool operator==(const OpaqueValue&, const OpaqueValue&) = default;
};

/// A dictionary of texts, UTF-8.
using TextDictionary = std::map<std::string, std::string, std::less<>>;

/// What stands under a key.
using DefaultsValue = std::variant<bool, std::int64_t, double, std::string, OpaqueValue>;

/// The user's own key-value store: settings and notes. A write is on its way to the disk when the
/// call returns, and safe from the end of this process. Nothing here fails: where the disk refuses,
/// the values live on in memory. Texts are kept byte for byte, well-formed or not. Main thread.
class DefaultsStore {
 public:
  virtual ~DefaultsStore() = default;

  /// Told when values came in from the disk that were not there before: it could not be read at the
  /// start, or another file was put in the place of the store's. What this program wrote in the
  /// meantime stands. On a pass of the loop of its own, never within a call.
  Signal<> cameIn;

  /// Whether all that was set is stored. While it is not, it lives in memory alone, and writing is
  /// tried again. The user should know of that.
  Published<bool> isKept{true};

  /// Whether what the disk holds is known. While it is not, a value that is absent here may well be
  /// stored; `cameIn` tells when it is.
  [[nodiscard]] virtual bool isRead() const = 0;

  /// Looks whether anything can come in by now. For moments when the user is about to see it.
  virtual void lookAgain() = 0;

  /// The plain value under the key; none when there is none or a dictionary stands there.
  [[nodiscard]] virtual std::optional<DefaultsValue> value(std::string_view key) const = 0;

  /// Replaces whatever stands under the key.
  virtual void setValue(std::string_view key, const DefaultsValue& value) = 0;

  /// The dictionary under the key; none when there is none, when a plain value stands there, or
  /// when any of its values is not text.
  [[nodiscard]] virtual std::optional<TextDictionary> dictionary(std::string_view key) const = 0;

  /// Replaces whatever stands under the key by the dictionary.
  virtual void setDictionary(std::string_view key, const TextDictionary& dictionary) = 0;

  /// Changes one entry of the dictionary under the key, or takes it out where the text is absent;
  /// writes that entry alone. Where no dictionary of texts stands, one with that entry replaces
  /// what does.
  virtual void setEntry(std::string_view key, std::string_view entry,
                        const std::optional<std::string>& text) = 0;

  /// The text under the key; none when it is absent or not text.
  [[nodiscard]] std::optional<std::string> string(std::string_view key) const;

  /// The truth under the key: a boolean, or a number that is 0 or 1; else none.
  [[nodiscard]] std::optional<bool> boolean(std::string_view key) const;

  /// The whole number under the key: an integer, a boolean as 0 or 1, or a 64-bit float without a
  /// fraction that fits; else none.
  [[nodiscard]] std::optional<std::int64_t> integer(std::string_view key) const;

  /// The number under the key as a 64-bit float; 0.0 when it is absent or not a number.
  [[nodiscard]] double number(std::string_view key) const;
};

}  // namespace Hilalor
