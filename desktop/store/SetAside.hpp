#pragma once

#include <filesystem>
#include <string_view>

namespace Hilalor::Desktop {

/// Renames a damaged database and the logs that belong to it, "defaults.sqlite" to
/// "defaults.damaged-1.sqlite" or the first higher number that is free. Nothing is overwritten.
/// Whether the name is free now.
[[nodiscard]] bool setAside(const std::filesystem::path& file);

/// A name beside the file's that nothing has: "defaults.WHY-1.sqlite", or with a higher number.
[[nodiscard]] std::filesystem::path nameAside(const std::filesystem::path& file,
                                              std::string_view why);

}  // namespace Hilalor::Desktop
