#pragma once

#include <filesystem>
#include <memory>

#include "desktop/sound/SoundReader.hpp"

namespace Hilalor {

/// A reader for MPEG audio; null when the file holds none.
[[nodiscard]] std::unique_ptr<SoundReader> openMpeg(const std::filesystem::path& path);

/// A reader for AIFF and the other kinds that libsndfile knows; null when the file is none of them.
/// Of more than two channels the first two are read.
[[nodiscard]] std::unique_ptr<SoundReader> openSampled(const std::filesystem::path& path);

}  // namespace Hilalor
