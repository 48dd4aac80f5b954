#include "tests/golden/Inputs.hpp"

namespace Golden {
namespace {

Adhan::PrayerAdjustments adjustments(const Json& row) {
  return {row.at("fajr"), row.at("sunrise"), row.at("dhuhr"),
          row.at("asr"),  row.at("maghrib"), row.at("isha")};
}

std::optional<int> optionalField(const Json& row, const char* key) {
  return row.contains(key) ? std::optional(row.at(key).get<int>()) : std::nullopt;
}

}  // namespace

Adhan::Coordinates coordinates(const Json& row) {
  return {row.at("latitude"), row.at("longitude")};
}

Hilalor::DateComponents date(const Json& row) {
  return {optionalField(row, "year"), optionalField(row, "month"),  optionalField(row, "day"),
          optionalField(row, "hour"), optionalField(row, "minute"), std::nullopt};
}

Adhan::CalculationParameters parameters(const Json& row) {
  Adhan::CalculationParameters result(row.at("fajrAngle"), row.at("ishaAngle"));
  result.method = enumerator<Adhan::CalculationMethod>(row.at("method"));
  if (!row.at("maghribAngle").is_null()) result.maghribAngle = row.at("maghribAngle");
  result.ishaInterval = row.at("ishaInterval");
  result.madhab = row.at("madhab") == "hanafi" ? Adhan::Madhab::hanafi : Adhan::Madhab::shafi;
  if (!row.at("highLatitudeRule").is_null()) {
    result.highLatitudeRule = enumerator<Adhan::HighLatitudeRule>(row.at("highLatitudeRule"));
  }
  result.adjustments = adjustments(row.at("adjustments"));
  result.rounding = enumerator<Adhan::Rounding>(row.at("rounding"));
  result.shafaq = enumerator<Adhan::Shafaq>(row.at("shafaq"));
  result.methodAdjustments = adjustments(row.at("methodAdjustments"));
  return result;
}

void chooseMethod(const Json& row, Hilalor::AppSettings& settings) {
  using namespace Hilalor;
  settings.calculationMethod =
      fromRawValue<PrayerCalculationMethod>(row.at("calculationMethod").get<std::string>()).value();
  settings.asrCalculation =
      fromRawValue<AsrCalculation>(row.at("asrCalculation").get<std::string>()).value();
}

}  // namespace Golden
