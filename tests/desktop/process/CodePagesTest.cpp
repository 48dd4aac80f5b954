#include "desktop/process/CodePages.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace Hilalor::Desktop {
namespace {

/// In kB, the pages of files that the process has mapped and touched.
int touchedFilePages() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    int size = 0;
    if (word == "RssFile:" && status >> size) return size;
  }
  return 0;
}

TEST(CodePages, ComeBackWhenTheyAreNeeded) {
  const int before = touchedFilePages();
  releaseCodePages();
  const int after = touchedFilePages();
  EXPECT_GT(after, 0);
  EXPECT_LT(after, before / 2);
}

}  // namespace
}  // namespace Hilalor::Desktop
