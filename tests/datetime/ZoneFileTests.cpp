#include "datetime/ZoneFile.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include "datetime/ZoneRule.hpp"
#include "tests/datetime/Instants.hpp"

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

TEST(ZoneRule, ReadsEveryFormOfRule) {
  const struct {
    const char* rule;
    Date instant;
    int offset;
  } cases[] = {
      {"UTC0", utc(2025, 7, 1), 0},
      {"<+0545>-5:45", utc(2025, 7, 1), 20700},
      {"IST-2IDT,M3.4.4/26,M10.5.0", utc(2025, 3, 27, 23, 59), 7200},
      {"IST-2IDT,M3.4.4/26,M10.5.0", utc(2025, 3, 28, 0, 0), 10800},
      {"EET-2EEST,M3.5.0/0,M10.5.0/0", utc(2025, 3, 29, 21, 59), 7200},
      {"EET-2EEST,M3.5.0/0,M10.5.0/0", utc(2025, 3, 29, 22), 10800},
      {"<-02>2<-01>,M3.5.0/-1,M10.5.0/0", utc(2025, 3, 30, 0, 59), -7200},
      {"<-02>2<-01>,M3.5.0/-1,M10.5.0/0", utc(2025, 3, 30, 1), -3600},
      {"IST-1GMT0,M10.5.0,M3.5.0/1", utc(2025, 1, 1), 0},
      {"IST-1GMT0,M10.5.0,M3.5.0/1", utc(2025, 7, 1), 3600},
      // Counted days: the 60th is always 1 March, or 29 February where it is counted from zero.
      {"AAA0BBB,J60/0,J300", utc(2024, 2, 29, 23, 59), 0},
      {"AAA0BBB,J60/0,J300", utc(2024, 3, 1), 3600},
      {"AAA0BBB,59/0,300", utc(2024, 2, 28, 23, 59), 0},
      {"AAA0BBB,59/0,300", utc(2024, 2, 29), 3600},
      // Saving all year round.
      {"XXX3EDT4,0/0,J365/23", utc(2025, 1, 1, 12), -14400},
      {"XXX3EDT4,0/0,J365/23", utc(2025, 12, 31, 12), -14400},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.rule);
    const auto rule = ZoneRule::parsed(test.rule);
    ASSERT_TRUE(rule);
    EXPECT_EQ(rule->offsetAt(static_cast<std::int64_t>(test.instant.secondsSince1970)), test.offset)
        << test.instant;
  }
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
