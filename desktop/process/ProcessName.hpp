#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace Hilalor::Desktop {

/// The name of a process as the kernel keeps it: 15 bytes at most; empty where it cannot be seen.
[[nodiscard]] std::string processName(std::uint32_t process);

/// The name of the process that listens at a socket of this machine; empty where none does.
[[nodiscard]] std::string ownerOfSocket(const std::filesystem::path& socket);

}  // namespace Hilalor::Desktop
