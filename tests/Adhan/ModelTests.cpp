#include <gtest/gtest.h>

#include <sstream>

#include "Adhan/Models/CalculationParameters.hpp"

namespace Adhan {
namespace {

// Every parameter of the method in one line.
std::string described(CalculationMethod method) {
  const auto parameters = params(method);
  EXPECT_EQ(parameters.method, method);
  EXPECT_EQ(parameters.adjustments, PrayerAdjustments{});
  EXPECT_FALSE(parameters.highLatitudeRule);
  const auto& minutes = parameters.methodAdjustments;
  std::ostringstream text;
  text << method << ' ' << parameters.fajrAngle << ' ' << parameters.ishaAngle << " +"
       << parameters.ishaInterval << " maghrib " << parameters.maghribAngle.value_or(-1) << " ["
       << minutes.fajr << ' ' << minutes.sunrise << ' ' << minutes.dhuhr << ' ' << minutes.asr
       << ' ' << minutes.maghrib << ' ' << minutes.isha << "] " << parameters.rounding << ' '
       << parameters.madhab << ' ' << parameters.shafaq;
  return text.str();
}

TEST(CalculationMethod, HasItsPublishedParameters) {
  const std::array expected{
      "muslimWorldLeague 18 17 +0 maghrib -1 [0 0 1 0 0 0] nearest 1 general",
      "egyptian 19.5 17.5 +0 maghrib -1 [0 0 1 0 0 0] nearest 1 general",
      "karachi 18 18 +0 maghrib -1 [0 0 1 0 0 0] nearest 1 general",
      "ummAlQura 18.5 0 +90 maghrib -1 [0 0 0 0 0 0] nearest 1 general",
      "dubai 18.2 18.2 +0 maghrib -1 [0 -3 3 3 3 0] nearest 1 general",
      "moonsightingCommittee 18 18 +0 maghrib -1 [0 0 5 0 3 0] nearest 1 general",
      "northAmerica 15 15 +0 maghrib -1 [0 0 1 0 0 0] nearest 1 general",
      "kuwait 18 17.5 +0 maghrib -1 [0 0 0 0 0 0] nearest 1 general",
      "qatar 18 0 +90 maghrib -1 [0 0 0 0 0 0] nearest 1 general",
      "singapore 20 18 +0 maghrib -1 [0 0 1 0 0 0] up 1 general",
      "tehran 17.7 14 +0 maghrib 4.5 [0 0 0 0 0 0] nearest 1 general",
      "turkey 18 17 +0 maghrib -1 [0 -7 5 4 7 0] nearest 1 general",
      "other 0 0 +0 maghrib -1 [0 0 0 0 0 0] nearest 1 general"};
  const auto methods = allCases<CalculationMethod>();
  ASSERT_EQ(methods.size(), expected.size());
  for (std::size_t index = 0; index < methods.size(); ++index) {
    EXPECT_EQ(described(methods[index]), expected[index]);
  }
}

TEST(RawValues, AreMatchedExactly) {
  using namespace std::string_literals;
  EXPECT_EQ(fromRawValue<CalculationMethod>("moonsightingCommittee"s),
            CalculationMethod::moonsightingCommittee);
  for (const auto& raw :
       {"MoonsightingCommittee"s, "moonsightingCommittee "s, "moonsighting"s, ""s}) {
    EXPECT_EQ(fromRawValue<CalculationMethod>(raw), std::nullopt) << raw;
  }
  EXPECT_EQ(fromRawValue<Madhab>(2), Madhab::hanafi);
  EXPECT_EQ(fromRawValue<Madhab>(0), std::nullopt);
  EXPECT_EQ(fromRawValue<Madhab>(3), std::nullopt);
}

}  // namespace
}  // namespace Adhan
