#pragma once

#include <filesystem>

namespace Hilalor::Desktop {

/// Makes the file and its folder where they are absent, and closes them to other users: what lies
/// there is private. False where something else has the place, such as a folder or a pipe: it must
/// not be read or written. A refusal by the disk shows when the file is opened.
[[nodiscard]] bool makePrivatePlace(const std::filesystem::path& file);

/// Whether nothing but a file lies under the names of the database and its logs.
[[nodiscard]] bool holdsFilesOnly(const std::filesystem::path& database);

}  // namespace Hilalor::Desktop
