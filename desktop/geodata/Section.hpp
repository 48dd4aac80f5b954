#pragma once

#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

namespace Hilalor::Desktop {

/// Bytes of a data file with little-endian numbers and texts in them. What would reach past the end
/// reads as 0 or as an empty text.
class Section {
 public:
  Section() = default;
  explicit Section(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  [[nodiscard]] std::size_t size() const { return bytes_.size(); }
  [[nodiscard]] std::span<const std::uint8_t> bytes() const { return bytes_; }

  [[nodiscard]] std::uint8_t u8(std::size_t offset) const {
    return static_cast<std::uint8_t>(number<1>(offset));
  }
  [[nodiscard]] std::uint16_t u16(std::size_t offset) const {
    return static_cast<std::uint16_t>(number<2>(offset));
  }
  [[nodiscard]] std::uint32_t u24(std::size_t offset) const { return number<3>(offset); }
  [[nodiscard]] std::uint32_t u32(std::size_t offset) const { return number<4>(offset); }

  /// The text that begins there and ends before a NUL.
  [[nodiscard]] std::string_view text(std::size_t offset) const {
    if (offset >= bytes_.size()) return {};
    const auto rest = bytes_.subspan(offset);
    const void* end = std::memchr(rest.data(), 0, rest.size());
    if (end == nullptr) return {};
    const auto length =
        static_cast<std::size_t>(static_cast<const std::uint8_t*>(end) - rest.data());
    return {reinterpret_cast<const char*>(rest.data()), length};
  }

 private:
  template <std::size_t kBytes>
  [[nodiscard]] std::uint32_t number(std::size_t offset) const {
    if (bytes_.size() < kBytes || offset > bytes_.size() - kBytes) return 0;
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < kBytes; ++i)
      value |= std::uint32_t{bytes_[offset + i]} << (8 * i);
    return value;
  }

  std::span<const std::uint8_t> bytes_;
};

}  // namespace Hilalor::Desktop
