#include "platform/DefaultsStore.hpp"

#include <cmath>

namespace Hilalor {
namespace {

std::optional<std::int64_t> wholeNumber(double number) {
  // 2^63 is the first double above the range of 64-bit integers.
  constexpr double kLimit = 9223372036854775808.0;
  if (!(number >= -kLimit && number < kLimit) || number != std::trunc(number)) return std::nullopt;
  return static_cast<std::int64_t>(number);
}

}  // namespace

std::optional<std::string> DefaultsStore::string(std::string_view key) const {
  const auto stored = value(key);
  if (!stored) return std::nullopt;
  const auto* text = std::get_if<std::string>(&*stored);
  return text != nullptr ? std::optional(*text) : std::nullopt;
}

std::optional<bool> DefaultsStore::boolean(std::string_view key) const {
  const auto number = integer(key);
  if (!number || (*number != 0 && *number != 1)) return std::nullopt;
  return *number == 1;
}

std::optional<std::int64_t> DefaultsStore::integer(std::string_view key) const {
  const auto stored = value(key);
  if (!stored) return std::nullopt;
  if (const auto* truth = std::get_if<bool>(&*stored)) return *truth ? 1 : 0;
  if (const auto* number = std::get_if<std::int64_t>(&*stored)) return *number;
  if (const auto* number = std::get_if<double>(&*stored)) return wholeNumber(*number);
  return std::nullopt;
}

double DefaultsStore::number(std::string_view key) const {
  const auto stored = value(key);
  if (!stored) return 0.0;
  if (const auto* truth = std::get_if<bool>(&*stored)) return *truth ? 1.0 : 0.0;
  if (const auto* number = std::get_if<std::int64_t>(&*stored)) {
    return static_cast<double>(*number);
  }
  const auto* number = std::get_if<double>(&*stored);
  return number != nullptr ? *number : 0.0;
}

}  // namespace Hilalor
