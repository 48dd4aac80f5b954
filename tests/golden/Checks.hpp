#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "datetime/Date.hpp"

namespace Golden {

using Json = nlohmann::json;

/// What the checks of one row found. An absent result is null on either side.
class Checks {
 public:
  void equal(std::string_view what, const Json& expected, const Json& actual);
  void near(std::string_view what, const Json& expected, const Json& actual, double tolerance);
  /// The same modulo `period`: 359.9999 is near 0 degrees.
  void nearOnCircle(std::string_view what, const Json& expected, const Json& actual,
                    double tolerance, double period = 360);
  void fail(std::string text);

  /// One line for each check that failed.
  [[nodiscard]] const std::vector<std::string>& failures() const { return failures_; }

 private:
  std::vector<std::string> failures_;
};

/// Seconds since 1970, or null.
[[nodiscard]] Json instant(const std::optional<Hilalor::Date>& date);

/// The number, or null for NaN.
[[nodiscard]] Json number(double value);

}  // namespace Golden
