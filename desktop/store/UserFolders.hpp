#pragma once

#include <filesystem>

namespace Hilalor::Desktop {

// The folders that a user keeps for all programs (XDG base directories), as absolute
// paths. Where the environment names no home folder it is that of the system's list of users.

/// XDG_CONFIG_HOME, or ".config" in the home folder.
[[nodiscard]] std::filesystem::path userConfigFolder();

/// XDG_DATA_HOME, or ".local/share" in the home folder.
[[nodiscard]] std::filesystem::path userDataFolder();

/// XDG_RUNTIME_DIR, which lasts as long as the session; empty where there is none.
[[nodiscard]] std::filesystem::path userRuntimeFolder();

}  // namespace Hilalor::Desktop
