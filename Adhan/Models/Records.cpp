#include "Adhan/Models/Records.hpp"

#include <cmath>
#include <nlohmann/json.hpp>
#include <utility>

namespace Adhan {
namespace {

using Json = nlohmann::json;

constexpr std::array<std::pair<const char*, int PrayerAdjustments::*>, 6> kAdjustments{{
    {"fajr", &PrayerAdjustments::fajr},
    {"sunrise", &PrayerAdjustments::sunrise},
    {"dhuhr", &PrayerAdjustments::dhuhr},
    {"asr", &PrayerAdjustments::asr},
    {"maghrib", &PrayerAdjustments::maghrib},
    {"isha", &PrayerAdjustments::isha},
}};

// Reads the values of a record and remembers whether one was missing or wrong.
class Reader {
 public:
  explicit Reader(const Json& record) : record_(record), good_(record.is_object()) {}

  [[nodiscard]] bool good() const { return good_; }

  // Whether an optional key is there.
  [[nodiscard]] bool has(const char* key) const {
    const Json* value = find(key);
    return value != nullptr && !value->is_null();
  }

  // The record under the key; one that reads nothing when there is none.
  [[nodiscard]] const Json& record(const char* key) const {
    static const Json kNone;
    const Json* value = find(key);
    return value == nullptr ? kNone : *value;
  }

  void read(const char* key, double& result) {
    const Json* value = find(key);
    if (expect(value != nullptr && value->is_number())) result = value->get<double>();
  }

  void read(const char* key, int& result) {
    const Json* value = find(key);
    if (!expect(value != nullptr && value->is_number_integer())) return;
    // An integer past the signed range is kept unsigned, and would wrap when read as signed.
    const bool fits = value->is_number_unsigned() ? std::in_range<int>(value->get<std::uint64_t>())
                                                  : std::in_range<int>(value->get<std::int64_t>());
    if (expect(fits)) result = value->get<int>();
  }

  template <typename E>
  requires std::is_enum_v<E>
  void read(const char* key, E& result) {
    std::optional<E> known;
    if constexpr (std::is_same_v<decltype(rawValue(E{})), int>) {
      int raw = 0;
      read(key, raw);
      known = fromRawValue<E>(raw);
    } else {
      const Json* value = find(key);
      const auto* raw = value == nullptr ? nullptr : value->get_ptr<const std::string*>();
      if (raw != nullptr) known = fromRawValue<E>(*raw);
    }
    if (expect(known.has_value())) result = *known;
  }

  void read(const char* key, PrayerAdjustments& result);

 private:
  [[nodiscard]] const Json* find(const char* key) const {
    if (!record_.is_object()) return nullptr;
    const auto found = record_.find(key);
    return found == record_.end() ? nullptr : &*found;
  }

  bool expect(bool met) {
    good_ = good_ && met;
    return met;
  }

  const Json& record_;
  bool good_;
};

std::optional<PrayerAdjustments> adjustmentsOf(const Json& record) {
  Reader reader(record);
  PrayerAdjustments result;
  for (const auto& [key, field] : kAdjustments)
    reader.read(key, result.*field);
  return reader.good() ? std::optional(result) : std::nullopt;
}

void Reader::read(const char* key, PrayerAdjustments& result) {
  const auto adjustments = adjustmentsOf(record(key));
  if (expect(adjustments.has_value())) result = *adjustments;
}

Json parsed(std::string_view text) {
  return Json::parse(text, nullptr, /*allow_exceptions=*/false);
}

Json recordOf(const PrayerAdjustments& adjustments) {
  Json record;
  for (const auto& [key, field] : kAdjustments)
    record[key] = adjustments.*field;
  return record;
}

}  // namespace

std::optional<std::string> jsonRecord(const Coordinates& coordinates) {
  if (!std::isfinite(coordinates.latitude) || !std::isfinite(coordinates.longitude)) {
    return std::nullopt;
  }
  return Json{{"latitude", coordinates.latitude}, {"longitude", coordinates.longitude}}.dump();
}

std::optional<std::string> jsonRecord(const PrayerAdjustments& adjustments) {
  return recordOf(adjustments).dump();
}

std::optional<std::string> jsonRecord(const CalculationParameters& parameters) {
  if (!std::isfinite(parameters.fajrAngle) || !std::isfinite(parameters.ishaAngle) ||
      !std::isfinite(parameters.maghribAngle.value_or(0))) {
    return std::nullopt;
  }
  Json record{{"method", rawValue(parameters.method)},
              {"fajrAngle", parameters.fajrAngle},
              {"ishaAngle", parameters.ishaAngle},
              {"ishaInterval", parameters.ishaInterval},
              {"madhab", rawValue(parameters.madhab)},
              {"adjustments", recordOf(parameters.adjustments)},
              {"rounding", rawValue(parameters.rounding)},
              {"shafaq", rawValue(parameters.shafaq)},
              {"methodAdjustments", recordOf(parameters.methodAdjustments)}};
  if (parameters.maghribAngle) record["maghribAngle"] = *parameters.maghribAngle;
  if (parameters.highLatitudeRule)
    record["highLatitudeRule"] = rawValue(*parameters.highLatitudeRule);
  return record.dump();
}

std::optional<Coordinates> coordinatesFrom(std::string_view jsonRecord) {
  const Json record = parsed(jsonRecord);
  Reader reader(record);
  Coordinates result;
  reader.read("latitude", result.latitude);
  reader.read("longitude", result.longitude);
  return reader.good() ? std::optional(result) : std::nullopt;
}

std::optional<PrayerAdjustments> prayerAdjustmentsFrom(std::string_view jsonRecord) {
  return adjustmentsOf(parsed(jsonRecord));
}

std::optional<CalculationParameters> calculationParametersFrom(std::string_view jsonRecord) {
  const Json record = parsed(jsonRecord);
  Reader reader(record);
  CalculationParameters result(0, 0);
  reader.read("method", result.method);
  reader.read("fajrAngle", result.fajrAngle);
  reader.read("ishaAngle", result.ishaAngle);
  reader.read("ishaInterval", result.ishaInterval);
  reader.read("madhab", result.madhab);
  reader.read("adjustments", result.adjustments);
  reader.read("rounding", result.rounding);
  reader.read("shafaq", result.shafaq);
  reader.read("methodAdjustments", result.methodAdjustments);
  if (reader.has("maghribAngle")) reader.read("maghribAngle", result.maghribAngle.emplace());
  if (reader.has("highLatitudeRule")) {
    reader.read("highLatitudeRule", result.highLatitudeRule.emplace());
  }
  return reader.good() ? std::optional(result) : std::nullopt;
}

}  // namespace Adhan
