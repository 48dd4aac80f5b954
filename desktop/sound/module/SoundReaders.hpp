#pragma once

#include <filesystem>
#include <memory>

#include "desktop/sound/SoundReader.hpp"

namespace Hilalor::Desktop {

// What the module's methods of these names hand out.

[[nodiscard]] std::unique_ptr<SoundReader> openMpeg(const std::filesystem::path& path);
[[nodiscard]] std::unique_ptr<SoundReader> openSampled(const std::filesystem::path& path);

}  // namespace Hilalor::Desktop
