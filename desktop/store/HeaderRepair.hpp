#pragma once

#include <filesystem>

#include "desktop/store/DefaultsContent.hpp"

namespace Hilalor::Desktop {

/// What can be read of a damaged store when the header of its file, which is the same in all
/// stores, is put right in memory. The file stays as it is, and its log is left out.
[[nodiscard]] DefaultsContent contentUnderSoundHeader(const std::filesystem::path& file);

}  // namespace Hilalor::Desktop
