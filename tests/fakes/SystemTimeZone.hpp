#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace Hilalor {

/// Sets the machine's time zone for as long as it lives.
class SystemTimeZone {
 public:
  explicit SystemTimeZone(const std::string& identifier) {
    if (const char* value = std::getenv("TZ")) before_ = value;
    set(identifier);
  }
  SystemTimeZone(const SystemTimeZone&) = delete;
  SystemTimeZone& operator=(const SystemTimeZone&) = delete;
  ~SystemTimeZone() { before_ ? setenv("TZ", before_->c_str(), 1) : unsetenv("TZ"); }

  void set(const std::string& identifier) { setenv("TZ", identifier.c_str(), 1); }

 private:
  std::optional<std::string> before_;
};

}  // namespace Hilalor
