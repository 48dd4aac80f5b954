#pragma once

#include <cstdint>
#include <string>

namespace Hilalor {

/// What is known of one zone: its name and its offset at every instant. Immutable.
class ZoneOffsets {
 public:
  explicit ZoneOffsets(std::string identifier) : identifier_(std::move(identifier)) {}
  virtual ~ZoneOffsets() = default;
  ZoneOffsets(const ZoneOffsets&) = delete;
  ZoneOffsets& operator=(const ZoneOffsets&) = delete;

  [[nodiscard]] const std::string& identifier() const { return identifier_; }

  /// Local time minus UTC in seconds at the instant, given in seconds since 1970 UTC.
  [[nodiscard]] virtual int offsetAt(std::int64_t utcSeconds) const = 0;

 private:
  std::string identifier_;
};

}  // namespace Hilalor
