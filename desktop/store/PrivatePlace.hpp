#pragma once

#include <filesystem>

namespace Hilalor::Desktop {

/// Makes the file and its folder where they are absent, and takes them from other users' eyes: what
/// lies there is private. False where something else has the place, a folder or a pipe say, which
/// is not to be read or written; a place that the disk refuses is left to whoever opens the file.
[[nodiscard]] bool makePrivatePlace(const std::filesystem::path& file);

/// Whether nothing but a file lies under the names of the database and its logs.
[[nodiscard]] bool holdsFilesOnly(const std::filesystem::path& database);

}  // namespace Hilalor::Desktop
