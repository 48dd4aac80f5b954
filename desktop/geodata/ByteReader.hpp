#pragma once

#include <cstdint>
#include <span>

namespace Hilalor::Desktop {

/// Reads bytes one after another. Past the end, or at a number that is too long, everything reads
/// as 0 and `failed` says so.
class ByteReader {
 public:
  explicit ByteReader(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

  [[nodiscard]] bool failed() const { return failed_; }

  std::uint32_t u8() {
    if (rest_.empty()) return fail();
    const std::uint32_t byte = rest_.front();
    rest_ = rest_.subspan(1);
    return byte;
  }

  std::uint32_t u16() {
    const std::uint32_t low = u8();
    return low | u8() << 8;
  }

  /// Seven bits a byte, the lowest first; the high bit says that more follow.
  std::uint32_t varint() {
    std::uint32_t value = 0;
    for (unsigned shift = 0; shift < 28; shift += 7) {
      const std::uint32_t byte = u8();
      value |= (byte & 0x7F) << shift;
      if ((byte & 0x80) == 0) return value;
    }
    return fail();
  }

  /// A signed number with its sign in the lowest bit.
  std::int32_t signedVarint() {
    const std::uint32_t value = varint();
    const auto magnitude = static_cast<std::int32_t>(value >> 1);
    return (value & 1) != 0 ? -magnitude - 1 : magnitude;
  }

 private:
  std::uint32_t fail() {
    failed_ = true;
    rest_ = {};
    return 0;
  }

  std::span<const std::uint8_t> rest_;
  bool failed_ = false;
};

}  // namespace Hilalor::Desktop
