#pragma once

#include <filesystem>

namespace Hilalor::Desktop {

/// The folder of what ships with the program: sounds, pictures, places. It is found from the
/// running program's own place (`../share/hilalor` from its folder), so an installed tree can be
/// moved; a program that is not installed uses the source tree's.
[[nodiscard]] std::filesystem::path resourceFolder();

}  // namespace Hilalor::Desktop
