#include "datetime/ZoneFile.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include "datetime/ZoneRule.hpp"

namespace Hilalor {
namespace {

TEST(ZoneFile, TakesNoFileThatIsCutOrGarbled) {
  std::ifstream file("/usr/share/zoneinfo/Asia/Beirut", std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  ASSERT_TRUE(zoneFromBytes("Asia/Beirut", bytes));
  for (std::size_t size = 0; size < bytes.size(); ++size)
    EXPECT_FALSE(zoneFromBytes("cut", bytes.substr(0, size))) << size;

  // A changed byte may still make a zone; none may be read beyond its end.
  std::mt19937 random(1);
  for (int round = 0; round < 20'000; ++round) {
    auto garbled = bytes;
    garbled[random() % garbled.size()] = static_cast<char>(random());
    garbled[random() % 200] = static_cast<char>(random());
    const auto zone = zoneFromBytes("garbled", garbled);
    if (zone) (void)zone->offsetAt(1'700'000'000);
  }
}

// The other forms are compared with the C library's, which knows no such rule.
TEST(ZoneRule, MaySaveAllYearRound) {
  const auto rule = ZoneRule::parsed("XXX3EDT4,0/0,J365/23");
  ASSERT_TRUE(rule);
  for (const std::int64_t instant : {1'735'732'800, 1'767'182'400})  // 1 January, 31 December 2025
    EXPECT_EQ(rule->offsetAt(instant), -14400);
}

TEST(ZoneRule, RefusesWhatIsNoRule) {
  for (const char* text :
       {"", "U", "UTC", "<+03-3", "EET-2EEST", "EET-2EEST,M3.5.0", "EET-2EEST,M13.5.0,M10.5.0",
        "EET-2EEST,M3.6.0,M10.5.0", "EET-2EEST,M3.5.7,M10.5.0", "EET-2EEST,M3.5.0/168,M10.5.0",
        "EET-2EEST,J0,J300", "EET-2EEST,M3.5.0,M10.5.0,", "EET-2:60"}) {
    EXPECT_FALSE(ZoneRule::parsed(text)) << text;
  }
}

}  // namespace
}  // namespace Hilalor
