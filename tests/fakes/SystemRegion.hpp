#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace Hilalor {

/// Sets the user's region for as long as it lives: LC_ALL, as in "ar_SA.UTF-8".
class SystemRegion {
 public:
  explicit SystemRegion(const std::string& locale) {
    if (const char* value = std::getenv("LC_ALL")) before_ = value;
    setenv("LC_ALL", locale.c_str(), 1);
  }
  SystemRegion(const SystemRegion&) = delete;
  SystemRegion& operator=(const SystemRegion&) = delete;
  ~SystemRegion() { before_ ? setenv("LC_ALL", before_->c_str(), 1) : unsetenv("LC_ALL"); }

 private:
  std::optional<std::string> before_;
};

}  // namespace Hilalor
