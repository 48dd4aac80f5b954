#pragma once

#include <filesystem>

namespace Hilalor::Desktop {

/// The folder of what ships with the program: sounds, pictures, places. It is found from the
/// running program's own place (`../share/hilalor` from its folder), so an installed tree can be
/// moved; a program that is not installed uses the source tree's.
[[nodiscard]] std::filesystem::path resourceFolder();

/// The folder of the user's own data for all programs: XDG_DATA_HOME where it is an absolute path,
/// else ".local/share" in the home folder.
[[nodiscard]] std::filesystem::path userDataFolder();

}  // namespace Hilalor::Desktop
