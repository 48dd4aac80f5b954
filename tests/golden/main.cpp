// Runs every row of every file of expected values and prints what differs. Status 0 when each row
// of each known file holds.

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "tests/golden/Kinds.hpp"

namespace Golden {
namespace {

namespace fs = std::filesystem;

constexpr int kFailuresShown = 3;

struct Tally {
  int rows = 0;
  int failed = 0;
};

fs::path folder() {
  const char* chosen = std::getenv("HILALOR_GOLDEN");
  return chosen != nullptr && *chosen != '\0' ? chosen : GOLDEN_FOLDER;
}

std::vector<fs::path> filesIn(const fs::path& folder) {
  std::vector<fs::path> files;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(folder, error)) {
    if (entry.path().extension() == ".jsonl") files.push_back(entry.path());
  }
  std::ranges::sort(files);
  return files;
}

const Kind* kindOf(const fs::path& file) {
  const auto found = std::ranges::find_if(
      kinds(), [&](const Kind& kind) { return file.stem().string().starts_with(kind.name); });
  return found == kinds().end() ? nullptr : &*found;
}

std::vector<std::string> failuresOf(const Kind& kind, const std::string& line) {
  Checks checks;
  try {
    kind.check(Json::parse(line), checks);
  } catch (const std::exception& problem) {
    checks.fail(std::string("not a row of this kind: ") + problem.what());
  }
  return checks.failures();
}

Tally run(const Kind& kind, const fs::path& file) {
  Tally tally;
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);) {
    if (line.empty()) continue;
    ++tally.rows;
    const auto failures = failuresOf(kind, line);
    if (failures.empty()) continue;
    if (++tally.failed > kFailuresShown) continue;
    std::cout << "FAILED " << line << '\n';
    for (const std::string& failure : failures)
      std::cout << "  " << failure << '\n';
  }
  return tally;
}

Tally runFile(const fs::path& file) {
  std::cout << file.filename().string();
  const Kind* kind = kindOf(file);
  if (kind == nullptr) {
    std::cout << ": not run\n";
    return {};
  }
  std::cout << '\n';
  const Tally tally = run(*kind, file);
  std::cout << "  " << tally.rows << " rows, " << tally.failed << " failed\n";
  if (tally.rows > 0) return tally;
  std::cout << "  A file without rows proves nothing.\n";
  return {0, 1};
}

int runFolder(const fs::path& folder) {
  Tally total;
  for (const fs::path& file : filesIn(folder)) {
    const Tally tally = runFile(file);
    total.rows += tally.rows;
    total.failed += tally.failed;
  }
  std::cout << "In all " << total.rows << " rows of " << folder.string() << ", " << total.failed
            << " failed\n";
  return total.rows > 0 && total.failed == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace Golden

int main() {
  return Golden::runFolder(Golden::folder());
}
