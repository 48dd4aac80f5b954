#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <string>

#include "tests/desktop/store/StoreFile.hpp"
#include "tests/fakes/ChildProcess.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr int kDays = 25;

// A process under the sanitizer takes ten times as long to fork.
#ifdef __SANITIZE_ADDRESS__
constexpr int kKilledWriters = 100;
#else
constexpr int kKilledWriters = 500;
#endif

// A text that tells whether it is whole: as long as its number says, a few characters or many
// pages.
std::string textOf(std::int64_t number) {
  const auto length = number % 40 == 7 ? 60'000 : number % 3000;
  return std::to_string(number) + std::string(static_cast<std::size_t>(length), '.');
}

std::string dayOf(std::int64_t number) {
  return std::to_string(number % kDays);
}

class KilledWriter : public StoreFile {
 protected:
  /// Lets a process write the numbers from that one on, each as a note and as a value, and kills it
  /// somewhere. The last number that it told of.
  std::int64_t lastBeforeKill(std::int64_t first) {
    std::array<int, 2> pipe{};
    EXPECT_EQ(::pipe(pipe.data()), 0);
    std::int64_t told = first - 1;
    const auto hear = [&] { return read(pipe[0], &told, sizeof told) == ssize_t{sizeof told}; };
    {
      ChildProcess writer([&] {
        const auto store = open();
        for (auto number = first;; ++number) {
          store->setEntry("notes", dayOf(number), textOf(number));
          store->setValue("last", number);
          if (::write(pipe[1], &number, sizeof number) != ssize_t{sizeof number}) return;
        }
      });
      close(pipe[1]);
      // Now and then enough of them for the log to be taken into the file.
      const auto heard = random_() % (random_() % 8 == 0 ? 600 : 20) + 1;
      for (unsigned i = 0; i < heard; ++i)
        EXPECT_TRUE(hear());
      writer.kill();
    }
    while (hear()) {
    }
    close(pipe[0]);
    return told;
  }

 private:
  std::mt19937 random_{1};
};

TEST_F(KilledWriter, LosesAndTearsNothingThatItToldOf) {
  std::int64_t last = 0;
  for (int round = 0; round < kKilledWriters; ++round) {
    SCOPED_TRACE(round);
    last = lastBeforeKill(last + 1);
    const auto store = open();
    const auto value = store->integer("last").value_or(0);
    ASSERT_TRUE(value == last || value == last + 1) << value << " after " << last;
    const auto notes = store->dictionary("notes").value_or(TextDictionary());
    for (auto number = std::max<std::int64_t>(last - kDays + 1, 1); number <= last; ++number) {
      const auto& note = notes.at(dayOf(number));
      const bool isNewer = number + kDays == last + 1 && note == textOf(last + 1);
      ASSERT_TRUE(note == textOf(number) || isNewer) << note.substr(0, 20) << " for " << number;
    }
  }
  EXPECT_EQ(setAsideFiles().size(), 0U);
}

}  // namespace
}  // namespace Hilalor::Desktop
