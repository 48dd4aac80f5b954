#include "command/Follow.hpp"

#include <gmock/gmock.h>

#include <functional>

#include "tests/fakes/InMemoryDefaultsStore.hpp"
#include "tests/fakes/SystemTimeZone.hpp"

namespace Hilalor {
namespace {

// 2026-11-23 14:00 in Riyadh, where the machine and the place are.
constexpr Date kStart{1795431600};

/// A clock that jumps from wake to wake, until the reader goes.
class Night : public Clock, public Wakes {
 public:
  explicit Night(Date end) : end_(end) {}

  [[nodiscard]] Date now() const override { return now_; }
  [[nodiscard]] bool sleepUntil(Date instant) override {
    ++wakes;
    now_ = instant;
    return now_ < end_;
  }

  int wakes = 0;

 private:
  Date now_ = kStart;
  Date end_;
};

TEST(Follow, PrintsEachTitleOnceAsItComes) {
  const SystemTimeZone zone("Asia/Riyadh");
  std::string style = "nextPrayer";
  std::optional<std::string> announcement;
  Night night(kStart + std::chrono::hours(30));
  std::vector<std::pair<Date, std::string>> lines;
  const FollowContext context{
      .clock = night,
      .wakes = night,
      .openStore =
          [&] {
            auto store = std::make_unique<InMemoryDefaultsStore>();
            store->setValue("menuBarStyle", style);
            return store;
          },
      .told = [&] { return Told{.place = {}, .announcement = announcement}; },
      .print = [&](const std::string& line) { lines.emplace_back(night.now(), line); }};

  follow({.verb = Verb::title}, context);
  ASSERT_EQ(lines.size(), 30U * 60 + 1);
  EXPECT_EQ(lines.front().second, "Asr 43m");
  // Right after a minute, for the minutes left are whole ones.
  EXPECT_EQ(lines[1].second, "Asr 42m");
  EXPECT_NEAR((lines[1].first - kStart).count(), 0, 0.004);
  EXPECT_EQ(lines[44].second, "Maghrib 2h 20m");
  EXPECT_NEAR((lines[44].first - kStart).count(), 43 * 60, 0.004);
  EXPECT_LE(night.wakes, 30 * 60 + 2);

  style = "date";
  lines.clear();
  Night quiet(kStart + std::chrono::hours(30));
  follow({.verb = Verb::title},
         {quiet, quiet, context.openStore, context.told,
          [&](const std::string& line) { lines.emplace_back(quiet.now(), line); }});
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[1].second, "24 Nov");
  EXPECT_NEAR((lines[1].first - kStart).count(), 10 * 3600, 0.004);
  EXPECT_LE(quiet.wakes, 33);

  announcement = "Asr Athan";
  lines.clear();
  Night announced(kStart + Seconds(70));
  follow({.verb = Verb::title},
         {announced, announced, context.openStore, context.told, [&](const std::string& line) {
            lines.emplace_back(announced.now(), line);
            announcement.reset();
          }});
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].second, "\U0001F54C Asr Athan");
  EXPECT_EQ(lines[1], (std::pair(kStart + Seconds(30), std::string("23 Nov"))))
      << "its program is gone";
}

}  // namespace
}  // namespace Hilalor
