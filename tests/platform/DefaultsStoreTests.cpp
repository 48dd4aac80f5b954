#include "platform/DefaultsStore.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/fakes/InMemoryDefaultsStore.hpp"

namespace Hilalor {
namespace {

constexpr auto kNone = std::nullopt;
constexpr auto kLargest = std::numeric_limits<std::int64_t>::max();

TEST(DefaultsStore, ReadsAValueByTypeAsFarAsItConverts) {
  const struct {
    const char* stored;
    DefaultsValue value;
    std::optional<std::string> string;
    std::optional<bool> boolean;
    std::optional<std::int64_t> integer;
    double number;
  } cases[] = {
      {"true", true, kNone, true, 1, 1.0},
      {"0", std::int64_t{0}, kNone, false, 0, 0.0},
      {"2", std::int64_t{2}, kNone, kNone, 2, 2.0},
      {"the largest", kLargest, kNone, kNone, kLargest, 0x1p63},
      {"15.0", 15.0, kNone, kNone, 15, 15.0},
      {"15.5", 15.5, kNone, kNone, kNone, 15.5},
      {"2 to the 63", 0x1p63, kNone, kNone, kNone, 0x1p63},
      {"minus 2 to the 63", -0x1p63, kNone, kNone, std::numeric_limits<std::int64_t>::min(),
       -0x1p63},
      {"infinity", HUGE_VAL, kNone, kNone, kNone, HUGE_VAL},
      {"text", std::string("15"), "15", kNone, kNone, 0.0},
      {"something else", OpaqueValue{}, kNone, kNone, kNone, 0.0},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.stored);
    InMemoryDefaultsStore store;
    store.setValue("key", row.value);
    EXPECT_EQ(store.string("key"), row.string);
    EXPECT_EQ(store.boolean("key"), row.boolean);
    EXPECT_EQ(store.integer("key"), row.integer);
    EXPECT_EQ(store.number("key"), row.number);
  }
}

TEST(DefaultsStore, AnAbsentKeyIsNothing) {
  const InMemoryDefaultsStore store;
  EXPECT_EQ(store.string("key"), kNone);
  EXPECT_EQ(store.boolean("key"), kNone);
  EXPECT_EQ(store.integer("key"), kNone);
  EXPECT_EQ(store.number("key"), 0.0);
}

}  // namespace
}  // namespace Hilalor
