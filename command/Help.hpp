#pragma once

#include <string_view>

namespace Hilalor {

/// What `hilalor --help` prints.
[[nodiscard]] std::string_view helpText();

}  // namespace Hilalor
