#include "program/Diagnosis.hpp"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <utility>

#include "desktop/diagnosis/SessionDiagnosis.hpp"
#include "desktop/diagnosis/StoreDiagnosis.hpp"
#include "desktop/diagnosis/Topics.hpp"
#include "rules/settings/ProgramFacts.hpp"

namespace Hilalor::Program {
namespace {

using Clock = std::chrono::steady_clock;

/// Longer than the topics wait themselves.
constexpr std::chrono::seconds kPatience{10};

std::string replaced(std::string line, const std::string& text, const std::string& by) {
  for (auto at = line.find(text); at != std::string::npos; at = line.find(text, at + by.size()))
    line.replace(at, text.size(), by);
  return line;
}

// Paths of the user's folders have their name in them.
std::string withoutName(std::string line) {
  for (const char* folder : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR", "HOME"}) {
    const char* path = std::getenv(folder);
    if (path == nullptr || std::string_view(path).size() < 2) continue;
    line =
        replaced(line, path, folder == std::string_view("HOME") ? "~" : std::string("$") + folder);
  }
  const char* name = std::getenv("USER");
  const auto part = std::string("/") + (name != nullptr ? name : "") + '/';
  return part.size() > 2 ? replaced(line, part, "/USER/") : line;
}

/// Another program at work, of whose output and complaints we read.
class Questioned {
 public:
  Questioned(const std::filesystem::path& program, const char* topic) : topic_(topic) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) return;
    output_ = ends[0];
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
    std::array<char*, 4> words{const_cast<char*>(program.c_str()), const_cast<char*>("diagnose"),
                               const_cast<char*>(topic), nullptr};
    failure_ = posix_spawn(&process_, program.c_str(), &actions, nullptr, words.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
  }
  Questioned(const Questioned&) = delete;
  Questioned& operator=(const Questioned&) = delete;
  ~Questioned() {
    if (output_ >= 0) close(output_);
    if (process_ == 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }

  /// What it says until it ends or the patience does, then why there is no more.
  [[nodiscard]] std::string answer() {
    if (failure_ != 0) return topic_ + ": cannot be asked: " + std::strerror(failure_) + '\n';
    std::string text;
    std::array<char, 4096> bytes{};
    const auto end = Clock::now() + kPatience;
    while (hasMore(end)) {
      const auto count = read(output_, bytes.data(), bytes.size());
      if (count <= 0) return text + fault();
      text.append(bytes.data(), static_cast<std::size_t>(count));
    }
    return text + topic_ + ": no answer within " + std::to_string(kPatience.count()) + " seconds\n";
  }

 private:
  // Of one that has said its last word; empty where it ended well.
  std::string fault() {
    int status = 0;
    waitpid(std::exchange(process_, 0), &status, 0);
    if (WIFSIGNALED(status))
      return topic_ + ": ended by signal " + std::to_string(WTERMSIG(status)) + '\n';
    return WEXITSTATUS(status) == 0 ? "" : topic_ + ": ended with a complaint\n";
  }

  [[nodiscard]] bool hasMore(Clock::time_point end) const {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
    pollfd waiting{output_, POLLIN, 0};
    return left.count() > 0 && poll(&waiting, 1, static_cast<int>(left.count())) == 1;
  }

  std::string topic_;
  int output_ = -1;
  int failure_ = EMFILE;
  pid_t process_ = 0;
};

}  // namespace

void diagnose(Date now, const std::filesystem::path& store, const std::filesystem::path& program,
              const std::function<void(const std::string& line)>& print) {
  const Desktop::Tell tell = [&print](std::string_view subject, const std::string& found) {
    print(withoutName(std::string(subject) + ": " + found));
  };
  tell("Hilalor", kVersion);
  Desktop::diagnoseSession(now, tell);
  Desktop::diagnoseStore(store, tell);
  for (const char* topic : Desktop::kTopics) {
    std::istringstream lines(Questioned(program, topic).answer());
    for (std::string line; std::getline(lines, line);)
      print(withoutName(line));
  }
}

}  // namespace Hilalor::Program
