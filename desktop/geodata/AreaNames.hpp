#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

#include "platform/Atlas.hpp"

namespace Hilalor::Desktop {

/// The countries and seas of names.bin (its format is described beside it), the widest first. Empty
/// when the file is not there or damaged.
[[nodiscard]] std::vector<NamedArea> readAreaNames(const std::filesystem::path& path);

/// The same from bytes.
[[nodiscard]] std::vector<NamedArea> areaNamesIn(std::span<const std::uint8_t> bytes);

}  // namespace Hilalor::Desktop
