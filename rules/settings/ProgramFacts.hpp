#pragma once

namespace Hilalor {

/// The running program's version.
inline constexpr const char* kVersion = HILALOR_VERSION;

/// Address of the project's site, empty in a build that was given none.
inline constexpr const char* kWebSite = HILALOR_WEBSITE;

}  // namespace Hilalor
