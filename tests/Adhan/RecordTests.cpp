#include "Adhan/Models/Records.hpp"

#include <gtest/gtest.h>

#include <limits>

#include "tests/Adhan/Days.hpp"

namespace Adhan {
namespace {

CalculationParameters elaborateParameters() {
  auto parameters = params(CalculationMethod::tehran);
  parameters.ishaInterval = -5;
  parameters.madhab = Madhab::hanafi;
  parameters.highLatitudeRule = HighLatitudeRule::twilightAngle;
  parameters.adjustments = {1, -2, 3, -4, 5, std::numeric_limits<int>::max()};
  parameters.rounding = Rounding::none;
  parameters.shafaq = Shafaq::abyad;
  parameters.methodAdjustments = {.dhuhr = 7};
  return parameters;
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  const auto position = text.find(from);
  EXPECT_NE(position, std::string::npos) << from << " in " << text;
  return position == std::string::npos ? text : text.replace(position, from.size(), to);
}

TEST(Records, LeadBackToTheirValues) {
  for (const CalculationMethod method : allCases<CalculationMethod>()) {
    EXPECT_EQ(calculationParametersFrom(jsonRecord(params(method)).value()), params(method));
  }
  const auto parameters = elaborateParameters();
  EXPECT_EQ(calculationParametersFrom(jsonRecord(parameters).value()), parameters);
  const Coordinates place{24.687700000000001, -1e300};
  EXPECT_EQ(coordinatesFrom(jsonRecord(place).value()), place);
  EXPECT_EQ(prayerAdjustmentsFrom(jsonRecord(parameters.adjustments).value()),
            parameters.adjustments);
}

TEST(Records, HaveTheirKeysAndRawValues) {
  EXPECT_EQ(jsonRecord(Coordinates{24.5, 46}), R"({"latitude":24.5,"longitude":46.0})");
  const auto text = jsonRecord(elaborateParameters()).value();
  for (const char* entry :
       {R"("method":"tehran")", R"("fajrAngle":17.7)", R"("maghribAngle":4.5)",
        R"("ishaAngle":14.0)", R"("ishaInterval":-5)", R"("madhab":2)",
        R"("highLatitudeRule":"twilightAngle")", R"("rounding":"none")", R"("shafaq":"abyad")",
        R"("methodAdjustments":{"asr":0,"dhuhr":7,"fajr":0,"isha":0,"maghrib":0,"sunrise":0})"}) {
    EXPECT_NE(text.find(entry), std::string::npos) << entry << " in " << text;
  }
  const auto plain = jsonRecord(params(CalculationMethod::other)).value();
  EXPECT_EQ(plain.find("maghribAngle"), std::string::npos);
  EXPECT_EQ(plain.find("highLatitudeRule"), std::string::npos);
}

TEST(Records, NeedEveryKeyButTheOptionalOnes) {
  const auto text = jsonRecord(elaborateParameters()).value();
  const auto without = [&text](const std::string& key) {
    return calculationParametersFrom(replaced(text, '"' + key + '"', R"("else")"));
  };
  for (const char* key :
       {"method", "fajrAngle", "ishaAngle", "ishaInterval", "madhab", "adjustments", "rounding",
        "shafaq", "methodAdjustments", "sunrise", "isha"})
    EXPECT_EQ(without(key), std::nullopt) << key;
  EXPECT_NE(without("highLatitudeRule"), std::nullopt);
  ASSERT_TRUE(without("maghribAngle"));
  EXPECT_FALSE(without("maghribAngle")->maghribAngle);
  EXPECT_TRUE(
      calculationParametersFrom(replaced(text, R"("maghribAngle":4.5)", R"("maghribAngle":null)")));
  EXPECT_EQ(coordinatesFrom(R"({"latitude":1})"), std::nullopt);
}

TEST(Records, RefuseValuesOfAnotherForm) {
  const auto text = jsonRecord(elaborateParameters()).value();
  const std::pair<const char*, const char*> changes[] = {
      {R"("method":"tehran")", R"("method":"Tehran")"},
      {R"("method":"tehran")", R"("method":10)"},
      {R"("fajrAngle":17.7)", R"("fajrAngle":"17.7")"},
      {R"("fajrAngle":17.7)", R"("fajrAngle":1e999)"},
      {R"("maghribAngle":4.5)", R"("maghribAngle":true)"},
      {R"("ishaInterval":-5)", R"("ishaInterval":-5.0)"},
      {R"("ishaInterval":-5)", R"("ishaInterval":2147483648)"},
      {R"("ishaInterval":-5)", R"("ishaInterval":18446744073709551615)"},
      {R"("madhab":2)", R"("madhab":3)"},
      {R"("madhab":2)", R"("madhab":"hanafi")"},
      {R"("highLatitudeRule":"twilightAngle")", R"("highLatitudeRule":"none")"},
      {R"("adjustments":{)", R"("adjustments":[{)"},
      {R"("rounding":"none")", R"("rounding":null)"}};
  for (const auto& [from, to] : changes) {
    EXPECT_EQ(calculationParametersFrom(replaced(text, from, to)), std::nullopt) << to;
  }
  for (const char* other : {"", "null", "[]", "7", "{", "\xff", R"("latitude")"}) {
    EXPECT_EQ(coordinatesFrom(other), std::nullopt) << other;
    EXPECT_EQ(prayerAdjustmentsFrom(other), std::nullopt) << other;
    EXPECT_EQ(calculationParametersFrom(other), std::nullopt) << other;
  }
}

TEST(Records, CannotHoldNumbersThatAreNotFinite) {
  EXPECT_EQ(jsonRecord(Coordinates{kInfinity, 0}), std::nullopt);
  EXPECT_EQ(jsonRecord(Coordinates{0, std::numeric_limits<double>::quiet_NaN()}), std::nullopt);
  auto parameters = params(CalculationMethod::tehran);
  parameters.maghribAngle = -kInfinity;
  EXPECT_EQ(jsonRecord(parameters), std::nullopt);
}

}  // namespace
}  // namespace Adhan
