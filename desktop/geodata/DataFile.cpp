#include "desktop/geodata/DataFile.hpp"

#include <algorithm>

namespace Hilalor::Desktop {
namespace {

constexpr std::size_t kVersionOffset = 4;
constexpr std::size_t kCountOffset = 6;
constexpr std::size_t kSizeOffset = 8;
constexpr std::size_t kTableOffset = 12;
constexpr std::size_t kEntrySize = 8;

}  // namespace

std::optional<DataFile> DataFile::open(const std::filesystem::path& path, Kind kind) {
  auto file = MappedFile::open(path);
  if (!file) return std::nullopt;
  auto data = over(file->bytes(), kind);
  if (data) data->file_ = std::move(file);
  return data;
}

std::optional<DataFile> DataFile::over(std::span<const std::uint8_t> bytes, Kind kind) {
  const Section header(bytes);
  const std::size_t end = kTableOffset + kEntrySize * kind.sectionCount;
  if (bytes.size() < end || !std::equal(kind.magic.begin(), kind.magic.end(), bytes.begin()) ||
      header.u16(kVersionOffset) != kind.version || header.u16(kCountOffset) != kind.sectionCount ||
      header.u32(kSizeOffset) != bytes.size()) {
    return std::nullopt;
  }
  DataFile data;
  for (std::size_t i = 0; i < kind.sectionCount; ++i) {
    const std::size_t offset = header.u32(kTableOffset + kEntrySize * i);
    const std::size_t length = header.u32(kTableOffset + kEntrySize * i + 4);
    if (offset < end || offset > bytes.size() || length > bytes.size() - offset) {
      return std::nullopt;
    }
    data.sections_.emplace_back(bytes.subspan(offset, length));
  }
  return data;
}

}  // namespace Hilalor::Desktop
