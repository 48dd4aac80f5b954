#include "tests/golden/Checks.hpp"

#include <cmath>
#include <utility>

namespace Golden {
namespace {

bool bothNumbers(const Json& expected, const Json& actual) {
  return expected.is_number() && actual.is_number();
}

std::string unequal(std::string_view what, const Json& expected, const Json& actual) {
  return std::string(what) + ": expected " + expected.dump() + ", actual " + actual.dump();
}

}  // namespace

void Checks::equal(std::string_view what, const Json& expected, const Json& actual) {
  if (expected != actual) fail(unequal(what, expected, actual));
}

void Checks::near(std::string_view what, const Json& expected, const Json& actual,
                  double tolerance) {
  if (!bothNumbers(expected, actual)) return equal(what, expected, actual);
  const double apart = std::abs(expected.get<double>() - actual.get<double>());
  if (!(apart <= tolerance)) fail(unequal(what, expected, actual));
}

void Checks::nearOnCircle(std::string_view what, const Json& expected, const Json& actual,
                          double tolerance, double period) {
  if (!bothNumbers(expected, actual)) return equal(what, expected, actual);
  const double apart = std::remainder(expected.get<double>() - actual.get<double>(), period);
  if (!(std::abs(apart) <= tolerance)) fail(unequal(what, expected, actual));
}

void Checks::fail(std::string text) {
  failures_.push_back(std::move(text));
}

Json instant(const std::optional<Hilalor::Date>& date) {
  return date ? Json(date->secondsSince1970) : Json();
}

Json number(double value) {
  return std::isnan(value) ? Json() : Json(value);
}

}  // namespace Golden
