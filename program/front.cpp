#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "command/AnnouncementFile.hpp"
#include "command/Answers.hpp"
#include "command/Arguments.hpp"
#include "command/Follow.hpp"
#include "command/Help.hpp"
#include "desktop/process/BesideProgram.hpp"
#include "desktop/process/SystemClock.hpp"
#include "desktop/store/DefaultsView.hpp"
#include "desktop/store/UserFolders.hpp"
#include "program/Diagnosis.hpp"
#include "program/PlaceFile.hpp"
#include "rules/settings/ProgramFacts.hpp"

namespace {

using namespace Hilalor;
using namespace Hilalor::Desktop;
using Hilalor::Program::announcementFile;
using Hilalor::Program::placeFile;

constexpr int kCannot = 2;

int complain(const std::string& text) {
  std::fprintf(stderr, "hilalor: %s\n", text.c_str());
  return kCannot;
}

void print(const std::string& text) {
  std::puts(text.c_str());
  std::fflush(stdout);
}

bool hasDisplay() {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return true;
  }
  return false;
}

// Goes on as the program with item and panel, which says the word to the copy that runs.
int become(char* name, const char* word) {
  const auto program = besideProgram(HILALOR_INSTALLED_PROGRAM);
  std::array<char*, 3> arguments{name, const_cast<char*>(word), nullptr};
  execv(program.c_str(), arguments.data());
  return complain("the program with the panel cannot be started: " +
                  std::string(std::strerror(errno)));
}

std::filesystem::path storeFile() {
  return userConfigFolder() / "hilalor/defaults.sqlite";
}

Told told() {
  return {.place = keptPlace(placeFile()), .announcement = keptAnnouncement(announcementFile())};
}

int answerRequest(const Request& request) {
  const SystemClock clock;
  DefaultsView store(storeFile());
  const Course course(store, told(), request);
  const auto moment = Moment::at(clock.now());
  if (const auto text = refusal(request, course, moment)) return complain(*text);
  if (const auto text = warning(request, course)) complain(*text);
  if (!request.follows) {
    print(answer(request, course, moment));
    return EXIT_SUCCESS;
  }
  KernelWakes wakes({storeFile().parent_path(), placeFile().parent_path()});
  follow(request, {.clock = clock,
                   .wakes = wakes,
                   .openStore = [] { return std::make_unique<DefaultsView>(storeFile()); },
                   .told = told,
                   .print = print});
  return EXIT_SUCCESS;
}

int run(const Request& request, char* name) {
  if (const auto word = wordToRunningCopy(request.verb)) return become(name, word->data());
  switch (request.verb) {
    case Verb::help:
      std::fputs(helpText().data(), stdout);
      std::fflush(stdout);
      return EXIT_SUCCESS;
    case Verb::version:
      print(std::string("Hilalor ") + kVersion);
      return EXIT_SUCCESS;
    case Verb::diagnose:
      Program::diagnose(SystemClock().now(), storeFile(), besideProgram(HILALOR_INSTALLED_PROGRAM),
                        print);
      return EXIT_SUCCESS;
    default:
      return answerRequest(request);
  }
}

}  // namespace

// What people start: the command itself, and the way to the program with item and panel.
int main(int argc, char* argv[]) {
  const std::vector<std::string_view> words(argv + 1, argv + argc);
  if (words.empty()) {
    if (!hasDisplay()) return complain("no display; \"hilalor --help\" lists what needs none");
    return become(argv[0], nullptr);
  }
  const auto request = requestOf(words);
  if (const auto* complaint = std::get_if<Complaint>(&request)) return complain(complaint->text);
  const int status = run(std::get<Request>(request), argv[0]);
  return std::ferror(stdout) == 0 ? status : complain("the answer cannot be written");
}
