#pragma once

#include <filesystem>

namespace Hilalor {

/// Renames a damaged database and the logs that belong to it, "defaults.sqlite" to
/// "defaults.damaged-1.sqlite" or the first higher number that is free. Nothing is overwritten.
/// Whether the name is free now.
[[nodiscard]] bool setAside(const std::filesystem::path& file);

}  // namespace Hilalor
