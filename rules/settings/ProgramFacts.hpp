#pragma once

namespace Hilalor {

/// The running program's version.
inline constexpr const char* kVersion = HILALOR_VERSION;

/// Where the program is at home.
inline constexpr const char* kWebSite = "https://hilalor.org";

}  // namespace Hilalor
