#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>
#include <vector>

namespace Hilalor {

using FuzzBytes = std::vector<std::uint8_t>;

/// Cuts the fuzzer's bytes into the parts of a data file. At their end everything is 0 or empty.
class FramedInput {
 public:
  explicit FramedInput(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

  /// A number to either side of 0, up to the limit.
  double degrees(double limit) { return limit * (static_cast<double>(number()) / 32768.0 - 1); }

  std::uint32_t number() {
    const auto bytes = take(2);
    return bytes.size() < 2 ? 0 : static_cast<std::uint32_t>(bytes[0] | bytes[1] << 8);
  }

  /// As many bytes as the next number says, up to the limit.
  FuzzBytes section(std::size_t limit) {
    const auto bytes = take(std::min<std::size_t>(number(), limit));
    return {bytes.begin(), bytes.end()};
  }

  FuzzBytes rest() {
    const auto bytes = take(rest_.size());
    return {bytes.begin(), bytes.end()};
  }

 private:
  std::span<const std::uint8_t> take(std::size_t count) {
    const auto taken = rest_.first(std::min(count, rest_.size()));
    rest_ = rest_.subspan(taken.size());
    return taken;
  }

  std::span<const std::uint8_t> rest_;
};

inline void setNumber(FuzzBytes& bytes, std::size_t offset, std::size_t value) {
  for (std::size_t i = 0; i < 4; ++i)
    bytes[offset + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

/// Little-endian numbers of 32 bits, as a data file has them.
inline FuzzBytes numbers(const std::vector<std::uint32_t>& values) {
  static_assert(std::endian::native == std::endian::little);
  FuzzBytes bytes(4 * values.size());
  std::memcpy(bytes.data(), values.data(), bytes.size());
  return bytes;
}

/// A data file of those sections.
inline FuzzBytes framed(std::string_view magic, std::uint8_t version,
                        const std::vector<FuzzBytes>& sections) {
  FuzzBytes file(12 + 8 * sections.size());
  std::copy(magic.begin(), magic.end(), file.begin());
  file[4] = version;
  file[6] = static_cast<std::uint8_t>(sections.size());
  for (std::size_t i = 0; i < sections.size(); ++i) {
    setNumber(file, 12 + 8 * i, file.size());
    setNumber(file, 16 + 8 * i, sections[i].size());
    file.insert(file.end(), sections[i].begin(), sections[i].end());
  }
  setNumber(file, 8, file.size());
  return file;
}

}  // namespace Hilalor
