#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>

namespace Hilalor::Desktop {

/// A file mapped into memory for reading; its pages are fetched when they are looked at, and the
/// system may drop them again.
class MappedFile {
 public:
  /// None when the file cannot be opened, is empty or not a plain file.
  [[nodiscard]] static std::optional<MappedFile> open(const std::filesystem::path& path);

  MappedFile(MappedFile&& other) noexcept;
  MappedFile& operator=(MappedFile&& other) noexcept;
  ~MappedFile();

  [[nodiscard]] std::span<const std::uint8_t> bytes() const { return bytes_; }

 private:
  explicit MappedFile(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  std::span<const std::uint8_t> bytes_;
};

}  // namespace Hilalor::Desktop
