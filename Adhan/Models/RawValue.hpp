#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <ostream>

namespace Adhan {

/// The raw values of the enumeration E, one per case in the order of declaration. Each enumeration
/// specialises it where it is declared; its cases number from 0.
template <typename E>
inline constexpr std::array<int, 0> kRawValues{};

template <typename E>
inline constexpr std::size_t kCaseCount = kRawValues<E>.size();

/// Every case of E in the order of declaration.
template <typename E>
[[nodiscard]] constexpr std::array<E, kCaseCount<E>> allCases() {
  std::array<E, kCaseCount<E>> cases{};
  for (std::size_t index = 0; index < cases.size(); ++index)
    cases[index] = static_cast<E>(index);
  return cases;
}

template <typename E>
[[nodiscard]] constexpr auto rawValue(E value) {
  return kRawValues<E>[static_cast<std::size_t>(value)];
}

/// The case with exactly that raw value, upper and lower case told apart; none for any other.
template <typename E, typename Raw>
[[nodiscard]] constexpr std::optional<E> fromRawValue(const Raw& raw) {
  for (const E value : allCases<E>()) {
    if (rawValue(value) == raw) return value;
  }
  return std::nullopt;
}

/// The raw value, for test failures.
template <typename E>
requires(kRawValues<E>.size() > 0) std::ostream& operator<<(std::ostream& out, E value) {
  return out << rawValue(value);
}

}  // namespace Adhan
