#pragma once

#include <filesystem>

#include "desktop/diagnosis/Tell.hpp"

namespace Hilalor::Desktop {

/// Whether settings and notes can be read and written, and what lies beside them. Tells nothing of
/// what they are, and writes nothing.
void diagnoseStore(const std::filesystem::path& file, const Tell& tell);

}  // namespace Hilalor::Desktop
