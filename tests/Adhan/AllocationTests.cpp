#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "Adhan/SunnahTimes.hpp"
#include "tests/Adhan/Days.hpp"

namespace {

int allocations = 0;

}  // namespace

// Not inlined, or the compiler sees memory of malloc given to delete.
[[gnu::noinline]] void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
  std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace Adhan {
namespace {

TEST(PrayerTimes, AllocateNothing) {
  static_cast<void>(gregorianUTC());  // made once for all
  const auto parameters = params(CalculationMethod::tehran);
  const int before = allocations;
  const auto times = PrayerTimes::make({24.6877, 46.7219}, day(2026, 11, 16), parameters);
  const auto sunnah = SunnahTimes::make(times.value());
  EXPECT_EQ(allocations, before);
  EXPECT_TRUE(sunnah);
}

}  // namespace
}  // namespace Adhan
