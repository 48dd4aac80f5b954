#include "datetime/TimeZone.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "tests/datetime/Instants.hpp"
#include "tests/fakes/SystemTimeZone.hpp"
#include "tests/fakes/TemporaryFolder.hpp"

namespace Hilalor {
namespace {

using Skipped = TimeZone::Skipped;

constexpr std::int64_t kDay = 86400;

// Every zone that the machine knows, but for those that count leap seconds.
std::vector<std::string> allZones() {
  std::vector<std::string> zones;
  const std::filesystem::path folder = "/usr/share/zoneinfo";
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    const auto name = std::filesystem::relative(entry.path(), folder).string();
    if (!entry.is_regular_file() || name.starts_with("right/") || name.starts_with("posix/")) {
      continue;
    }
    std::string magic(4, '\0');
    std::ifstream(entry.path(), std::ios::binary).read(magic.data(), 4);
    if (magic == "TZif" && name != "localtime" && name != "posixrules") zones.push_back(name);
  }
  std::sort(zones.begin(), zones.end());
  return zones;
}

// What the C library makes of the same files.
int libraryOffset(std::int64_t instant) {
  const std::time_t time = instant;
  std::tm local{};
  localtime_r(&time, &local);
  return static_cast<int>(local.tm_gmtoff);
}

int offset(const TimeZone& zone, std::int64_t instant) {
  return zone.secondsFromUTC({static_cast<double>(instant)});
}

// The first instants of new offsets, found month by month.
std::vector<std::int64_t> changes(const TimeZone& zone, int fromYear, int toYear) {
  std::vector<std::int64_t> found;
  const auto start = static_cast<std::int64_t>(utc(fromYear, 1, 1).secondsSince1970);
  const auto end = static_cast<std::int64_t>(utc(toYear, 1, 1).secondsSince1970);
  for (auto before = start; before < end; before += 20 * kDay) {
    auto low = before;
    auto high = before + 20 * kDay;
    if (offset(zone, low) == offset(zone, high)) continue;
    while (high - low > 1) {
      const auto middle = low + (high - low) / 2;
      (offset(zone, middle) == offset(zone, before) ? low : high) = middle;
    }
    found.push_back(high);
  }
  return found;
}

TEST(TimeZone, AgreesWithTheCLibraryInEveryZone) {
  std::mt19937_64 random(1);
  const auto from = static_cast<std::int64_t>(utc(1850, 1, 1).secondsSince1970);
  const auto to = static_cast<std::int64_t>(utc(2500, 1, 1).secondsSince1970);
  std::uniform_int_distribution<std::int64_t> anyInstant(from, to);
  const auto zones = allZones();
  ASSERT_GT(zones.size(), 300U);
  for (const auto& name : zones) {
    SCOPED_TRACE(name);
    const SystemTimeZone system(name);
    tzset();
    const auto zone = TimeZone::named(name);
    ASSERT_TRUE(zone);
    auto instants = changes(*zone, 1900, 2100);
    const auto changeCount = instants.size();
    for (std::size_t i = 0; i < changeCount; ++i)
      instants.push_back(instants[i] - 1);
    for (int i = 0; i < 200; ++i)
      instants.push_back(anyInstant(random));
    for (const auto instant : instants) {
      ASSERT_EQ(offset(*zone, instant), libraryOffset(instant))
          << Date{static_cast<double>(instant)};
    }
  }
}

TEST(TimeZone, FindsTheFirstInstantOfEveryLocalTimeAroundEveryChange) {
  for (const auto& name : allZones()) {
    SCOPED_TRACE(name);
    const auto zone = TimeZone::named(name).value();
    for (const auto change : changes(zone, 1900, 2060)) {
      for (auto instant = change - 30 * 3600; instant < change + 30 * 3600; instant += 1800) {
        const auto local = instant + offset(zone, instant);
        const auto found = zone.utcSeconds(local, Skipped::asMuchLater);
        ASSERT_EQ(found + offset(zone, found), local) << Date{static_cast<double>(instant)};
        ASSERT_LE(found, instant) << Date{static_cast<double>(instant)};
      }
    }
  }
}

struct LocalCase {
  const char* zone;
  Date local;  // its fields, as if they were UTC
  Date asMuchLater;
  Date firstAfter;
};

TEST(TimeZone, KnowsWhatSkippedAndRepeatedLocalTimesStandFor) {
  const LocalCase cases[] = {
      // No midnight: the clock goes from 00:00 to 01:00.
      {"Asia/Beirut", utc(2025, 3, 30), utc(2025, 3, 29, 22), utc(2025, 3, 29, 22)},
      {"Asia/Beirut", utc(2025, 3, 30, 0, 30), utc(2025, 3, 29, 22, 30), utc(2025, 3, 29, 22)},
      {"America/Sao_Paulo", utc(2018, 11, 4), utc(2018, 11, 4, 3), utc(2018, 11, 4, 3)},
      // Midnight twice: the clock goes from 24:00 back to 23:00.
      {"Asia/Beirut", utc(2025, 10, 25, 23, 30), utc(2025, 10, 25, 20, 30),
       utc(2025, 10, 25, 20, 30)},
      // Half an hour skipped, half an hour repeated.
      {"Australia/Lord_Howe", utc(2025, 10, 5, 2, 15), utc(2025, 10, 4, 15, 45),
       utc(2025, 10, 4, 15, 30)},
      {"Australia/Lord_Howe", utc(2025, 4, 6, 1, 45), utc(2025, 4, 5, 14, 45),
       utc(2025, 4, 5, 14, 45)},
      // A day that never was: from the 29th to the 31st across the date line.
      {"Pacific/Apia", utc(2011, 12, 30, 12), utc(2011, 12, 30, 22), utc(2011, 12, 30, 10)},
      {"Pacific/Apia", utc(2011, 12, 31), utc(2011, 12, 30, 10), utc(2011, 12, 30, 10)},
      // A day that was twice: back across the date line.
      {"Pacific/Kwajalein", utc(1969, 9, 30, 12), utc(1969, 9, 30, 1), utc(1969, 9, 30, 1)},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.zone);
    const auto zone = TimeZone::named(test.zone).value();
    const auto local = static_cast<std::int64_t>(test.local.secondsSince1970);
    const auto instant = [&](Skipped skipped) {
      return Date{static_cast<double>(zone.utcSeconds(local, skipped))};
    };
    EXPECT_EQ(instant(Skipped::asMuchLater), test.asMuchLater);
    EXPECT_EQ(instant(Skipped::firstAfter), test.firstAfter);
  }
}

TEST(TimeZone, TakesInstantsOutOfAllBounds) {
  const auto zone = TimeZone::named("Asia/Beirut").value();
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(zone.secondsFromUTC({std::nan("")}), 0);
  EXPECT_EQ(zone.secondsFromUTC({infinity}), 0);
  for (const double seconds : {1e12, 1e15, 1e300, -1e12, -1e300}) {
    const int found = zone.secondsFromUTC({seconds});
    EXPECT_TRUE(found > 0 && found <= 10800) << seconds;
  }
}

TEST(TimeZone, KnowsNoZoneByAWrongName) {
  for (const char* name : {"", "Nowhere/Land", "../../../etc/passwd", "/etc/localtime",
                           "Asia/Riyadh/", "Asia", "tzdata.zi", "GMT+25", "Asia/Riy adh"}) {
    EXPECT_FALSE(TimeZone::named(name)) << name;
  }
}

TEST(TimeZone, TakesOverRulesThatAnUpdateOfTheMachineBrought) {
  namespace fs = std::filesystem;
  const fs::path rules = "/usr/share/zoneinfo";
  const TemporaryFolder folder;
  setenv("TZDIR", folder.path().c_str(), 1);
  const auto update = [&](const char* with) {
    fs::copy_file(rules / with, folder.path() / "new");
    fs::rename(folder.path() / "new", folder.path() / "Country");
    TimeZone::rereadChangedRules();
  };
  const SystemTimeZone system("Country");
  const Date summer = utc(2026, 7, 1);
  update("Asia/Riyadh");
  const auto before = TimeZone::named("Country").value();
  update("Africa/Algiers");
  EXPECT_EQ(before.secondsFromUTC(summer), 10800);
  EXPECT_EQ(TimeZone::named("Country").value().secondsFromUTC(summer), 3600);
  EXPECT_EQ(TimeZone::current().secondsFromUTC(summer), 3600);
  // An update on its way.
  fs::resize_file(folder.path() / "Country", 60);
  TimeZone::rereadChangedRules();
  EXPECT_EQ(TimeZone::current().secondsFromUTC(summer), 3600);
  update("Asia/Riyadh");
  EXPECT_EQ(TimeZone::current().secondsFromUTC(summer), 10800);
  unsetenv("TZDIR");
}

TEST(TimeZone, IsTheMachinesAnewAtEveryCall) {
  SystemTimeZone system("Asia/Riyadh");
  EXPECT_EQ(TimeZone::current().identifier(), "Asia/Riyadh");
  system.set(":Africa/Cairo");
  EXPECT_EQ(TimeZone::current().identifier(), "Africa/Cairo");
  system.set("no zone");
  EXPECT_TRUE(TimeZone::named(TimeZone::current().identifier()));
}

TEST(TimeZone, ReadsTheVariableAsTheCLibraryDoes) {
  const TemporaryFolder folder;
  const auto copy = folder.path() / "copy";
  std::filesystem::copy_file("/usr/share/zoneinfo/Africa/Cairo", copy);
  const std::string values[] = {"UTC-3",
                                "<+03>-3",
                                "GMT+3",
                                "<-0330>3:30",
                                "EST5EDT",
                                "EST5EDT,M3.2.0,M11.1.0",
                                "AEST-10AEDT,M10.1.0,M4.1.0/3",
                                "IST-1GMT0,M10.5.0,M3.5.0/1",
                                "IST-2IDT,M3.4.4/26,M10.5.0",
                                "<-02>2<-01>,M3.5.0/-1,M10.5.0/0",
                                "XXX4YYY,J60/0,300/25",
                                "AAA0BBB,59/0,300",
                                ":Asia/Riyadh",
                                ":/usr/share/zoneinfo/Asia/Tehran",
                                "/usr/share/zoneinfo/Europe/Oslo",
                                copy.string(),
                                "",
                                "Nowhere/Here",
                                "/nowhere/here"};
  const SystemTimeZone restored("UTC");
  for (const auto& value : values) {
    SCOPED_TRACE(value);
    setenv("TZ", value.c_str(), 1);
    tzset();
    const auto zone = TimeZone::current();
    const auto start = static_cast<std::int64_t>(utc(2026, 1, 1).secondsSince1970);
    for (auto instant = start; instant < start + 800 * kDay; instant += 1800)
      ASSERT_EQ(offset(zone, instant), libraryOffset(instant)) << instant;
  }
  tzset();
}

}  // namespace
}  // namespace Hilalor
