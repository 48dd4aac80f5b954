#pragma once

#include <filesystem>

#include "desktop/store/UserFolders.hpp"

namespace Hilalor::Program {

/// Where the program keeps the place that it found, for commands; empty in a session without a
/// folder of its own.
[[nodiscard]] inline std::filesystem::path placeFile() {
  const auto folder = Desktop::userRuntimeFolder();
  return folder.empty() ? folder : folder / "hilalor/place";
}

/// Where it keeps the announcement in progress; empty as above.
[[nodiscard]] inline std::filesystem::path announcementFile() {
  const auto folder = Desktop::userRuntimeFolder();
  return folder.empty() ? folder : folder / "hilalor/announcement";
}

}  // namespace Hilalor::Program
