#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <random>
#include <string>

#include "tests/desktop/store/StoreFile.hpp"
#include "tests/fakes/ChildProcess.hpp"

namespace Hilalor {
namespace {

class KilledWriter : public StoreFile {};

constexpr std::array<const char*, 3> kKeys{"one", "two", "three"};

// A note that tells whether it is whole: as long as its number says.
std::string noteOf(std::int64_t number) {
  return std::to_string(number) + std::string(static_cast<std::size_t>(number % 3000), '.');
}

// Writes rising numbers, each to every key and to a note, and tells of each number when all have
// taken it.
void writeRisingNumbers(DefaultsStore& store, int told) {
  for (std::int64_t number = store.integer(kKeys.front()).value_or(0) + 1;; ++number) {
    for (const char* key : kKeys)
      store.setValue(key, number);
    store.setEntry("notes", "note", noteOf(number));
    if (write(told, &number, sizeof number) != sizeof number) return;
  }
}

TEST_F(KilledWriter, LeavesTheLastOrTheLastButOneValueOfEveryKey) {
  std::mt19937 random(1);
  std::int64_t highest = 0;
  for (int round = 0; round < 200; ++round) {
    SCOPED_TRACE(round);
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    std::int64_t told = highest;
    {
      ChildProcess writer([&] { writeRisingNumbers(*open(), pipe[1]); });
      close(pipe[1]);
      // Now and then enough of them for the log to be taken into the file.
      for (auto left = random() % (round % 8 == 0 ? 600 : 20) + 1; left > 0; --left)
        ASSERT_EQ(read(pipe[0], &told, sizeof told), ssize_t{sizeof told});
      writer.kill();
    }
    while (read(pipe[0], &told, sizeof told) == ssize_t{sizeof told}) {
    }
    close(pipe[0]);

    const auto store = open();
    for (const char* key : kKeys) {
      const auto number = store->integer(key).value_or(0);
      EXPECT_TRUE(number == told || number == told + 1) << number << " after " << told;
    }
    const auto note = store->dictionary("notes").value_or(TextDictionary())["note"];
    const auto number = std::stoll(note);
    EXPECT_TRUE(number == told || number == told + 1) << number << " after " << told;
    EXPECT_EQ(note,
              std::to_string(number) + std::string(static_cast<std::size_t>(number % 3000), '.'));
    highest = told;
  }
  EXPECT_EQ(setAsideFiles().size(), 0U);
}

}  // namespace
}  // namespace Hilalor
