#include "datetime/Region.hpp"

#include <cstdlib>
#include <string_view>

namespace Hilalor {

Region Region::current() {
  for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value == nullptr || *value == '\0') continue;
    const std::string_view text(value);
    const auto name = text.substr(0, text.find_first_of(".@"));
    if (name == "C" || name == "POSIX") break;
    return {std::string(name)};
  }
  return {};
}

}  // namespace Hilalor
