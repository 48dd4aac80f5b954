#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <string>

namespace Hilalor {

/// A random (version 4) universally unique identifier, RFC 4122.
struct Uuid {
  std::array<std::uint8_t, 16> bytes{};

  /// A fresh one.
  [[nodiscard]] static Uuid random();

  /// The canonical text, "1b4e28ba-2fa1-41d2-883f-0016d3cca427".
  [[nodiscard]] std::string string() const;

  friend auto operator<=>(const Uuid&, const Uuid&) = default;
};

}  // namespace Hilalor
