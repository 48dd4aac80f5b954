#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <regex>
#include <string>

namespace Hilalor {

/// The documented form of the command's answers.
class Schema {
 public:
  using Json = nlohmann::json;

  /// Whether the line is what the definition says, with no key beside the documented ones.
  [[nodiscard]] bool fits(const std::string& line, const std::string& definition) const {
    const auto value = Json::parse(line, nullptr, false);
    return value.is_object() && fits(value, all_.at("$defs").at(definition));
  }

 private:
  [[nodiscard]] bool fits(const Json& value, const Json& rule) const {
    if (rule.contains("$ref")) {
      const auto name = rule["$ref"].get<std::string>();
      return fits(value, all_.at(Json::json_pointer(name.substr(1))));
    }
    if (rule.contains("anyOf")) {
      const auto& ways = rule["anyOf"];
      return std::any_of(ways.begin(), ways.end(),
                         [&](const Json& way) { return fits(value, way); });
    }
    if (rule.contains("enum")) {
      return std::count(rule["enum"].begin(), rule["enum"].end(), value) == 1;
    }
    return hasType(value, rule.at("type")) && fitsParts(value, rule);
  }

  static bool hasType(const Json& value, const Json& types) {
    if (types.is_array()) {
      return std::any_of(types.begin(), types.end(),
                         [&](const Json& type) { return hasType(value, type); });
    }
    if (types == "integer") return value.is_number_integer();
    return types == value.type_name();
  }

  [[nodiscard]] bool fitsParts(const Json& value, const Json& rule) const {
    if (rule.contains("pattern")) {
      return std::regex_match(value.get<std::string>(), std::regex(rule["pattern"]));
    }
    if (value.is_array()) {
      return std::all_of(value.begin(), value.end(),
                         [&](const Json& item) { return fits(item, rule.at("items")); });
    }
    if (!value.is_object()) return true;
    const auto& needed = rule.at("required");
    const auto& known = rule.at("properties");
    return std::all_of(needed.begin(), needed.end(),
                       [&](const std::string& key) { return value.contains(key); }) &&
           std::all_of(value.items().begin(), value.items().end(), [&](const auto& part) {
             return known.contains(part.key()) && fits(part.value(), known[part.key()]);
           });
  }

  Json all_ = Json::parse(std::ifstream(HILALOR_COMMAND_SCHEMA));
};

}  // namespace Hilalor
