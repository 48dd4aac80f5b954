// course_check [--all|--hard|--random|--whole|--short|PLACE] ZONES: runs the program's loop in hard
// places over ten years, and in random ones over one, and holds what it announces, shows in the bar
// and marks in the list against prayers found from the sun's altitude. Prints what it counted;
// status 0 when nothing is wrong.

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <numbers>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "desktop/geodata/ZoneDatabase.hpp"
#include "tools/course/Watch.hpp"

namespace Course {
namespace {

using Method = Hilalor::PrayerCalculationMethod;

constexpr double kNewYear = 1767225600;  // 2026-01-01 00:00 UTC
constexpr double kDay = 86400;
constexpr double kTenYears = 3652 * kDay;
constexpr double kYear = 365 * kDay;
constexpr int kRandomPlaces = 500;

constexpr std::array kMethods{Method::muslimWorldLeague, Method::ummAlQura,
                              Method::moonsightingCommittee, Method::turkey, Method::tehran};
// The machine's clock, method by method; empty for the place's own.
constexpr std::array kMachineZones{"", "Europe/London", "Pacific/Kiritimati", "America/Adak", ""};

Life lifeOf(const Home& home, std::size_t method, double from, double span, bool everyTick,
            long listEvery) {
  Life life{home, "", kMethods[method], from, from + span, everyTick, listEvery};
  const std::string machine = kMachineZones[method];
  std::snprintf(life.machineZone, sizeof life.machineZone, "%s",
                machine.empty() ? home.zone : machine.c_str());
  return life;
}

/// Of all hard places, or of one, whose faults are all told.
std::vector<Life> hardLives(const std::string& one = "") {
  std::vector<Life> lives;
  for (const Home& home : kHardPlaces) {
    if (!one.empty() && home.name != one) continue;
    for (std::size_t method = 0; method < kMethods.size(); ++method) {
      lives.push_back(lifeOf(home, method, kNewYear, kTenYears, false, 241));
      lives.back().saysAll = !one.empty();
    }
  }
  return lives;
}

/// Every single tick of a year.
std::vector<Life> wholeLives() {
  std::vector<Life> lives;
  for (const std::string name : {"Apia", "Suva", "Oslo", "Riyadh", "Rovaniemi"}) {
    for (const Home& home : kHardPlaces)
      if (home.name == name)
        lives.push_back(lifeOf(home, lives.size(), kNewYear, kYear, true, 241));
  }
  return lives;
}

std::vector<Life> randomLives(const Hilalor::Desktop::ZoneDatabase& zones) {
  std::vector<Life> lives;
  std::mt19937_64 random(13);
  std::uniform_real_distribution<double> part(0, 1);
  while (lives.size() < kRandomPlaces) {
    Home home{"", std::asin(2 * part(random) - 1) * 180 / std::numbers::pi,
              360 * part(random) - 180, ""};
    const auto zone = zones.zoneAt({home.latitude, home.longitude});
    if (!zone) continue;
    std::snprintf(home.name, sizeof home.name, "%+.2f%+.2f", home.latitude, home.longitude);
    std::snprintf(home.zone, sizeof home.zone, "%.*s", static_cast<int>(zone->size()),
                  zone->data());
    lives.push_back(lifeOf(home, lives.size() % kMethods.size(), kNewYear, kYear, false, 61));
    lives.back().saysAll = true;
  }
  return lives;
}

/// The short cut: the days around the turns of the year that are hardest.
std::vector<Life> shortLives() {
  std::vector<Life> lives;
  for (std::size_t place = 0; place < kHardPlaces.size(); ++place) {
    for (const double day : {150.0, 255.0, 326.0})
      lives.push_back(lifeOf(kHardPlaces[place], place % kMethods.size(), kNewYear + day * kDay,
                             16 * kDay, false, 19));
  }
  return lives;
}

/// Each life in a process of its own share, for the program's shared objects are one a process.
std::span<const Tally> watchAll(const std::vector<Life>& lives) {
  void* memory = mmap(nullptr, lives.size() * sizeof(Tally), PROT_READ | PROT_WRITE,
                      MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) std::abort();
  auto* tallies = static_cast<Tally*>(memory);
  const std::size_t workers = std::max(1U, std::thread::hardware_concurrency());
  for (std::size_t worker = 0; worker < workers; ++worker) {
    if (fork() != 0) continue;
    for (std::size_t index = worker; index < lives.size(); index += workers)
      tallies[index] = watch(lives[index]);
    std::fflush(stdout);
    _exit(0);
  }
  while (wait(nullptr) > 0) {
  }
  return {tallies, lives.size()};
}

bool isClean(const Tally& tally) {
  return tally.ticks > 0 && tally.missed + tally.doubled + tally.extra + tally.outOfOrder +
                                    tally.wrongTitles + tally.wrongMarks ==
                                0;
}

void add(Tally& sum, const Tally& one) {
  for (auto count :
       {&Tally::ticks, &Tally::announced, &Tally::missed, &Tally::doubled, &Tally::extra,
        &Tally::outOfOrder, &Tally::wrongTitles, &Tally::wrongMarks, &Tally::marksSeen,
        &Tally::leftAtEdge, &Tally::leftAsr, &Tally::leftInShortNight})
    sum.*count += one.*count;
  sum.farthest = std::max(sum.farthest, one.farthest);
  sum.farthestGrazing = std::max(sum.farthestGrazing, one.farthestGrazing);
  sum.farthestAsr = std::max(sum.farthestAsr, one.farthestAsr);
  sum.processorSeconds += one.processorSeconds;
  if (sum.firstFault[0] == '\0') std::memcpy(sum.firstFault, one.firstFault, sizeof one.firstFault);
}

void print(const char* name, const Tally& tally) {
  std::printf(
      "%-18s %10ld %9ld %6ld %7ld %5ld %5ld %6ld %5ld | %5ld %5ld %5ld | %5.0f %6.0f %5.0f  %s\n",
      name, tally.ticks, tally.announced, tally.missed, tally.doubled, tally.extra,
      tally.outOfOrder, tally.wrongTitles, tally.wrongMarks, tally.leftAtEdge, tally.leftAsr,
      tally.leftInShortNight, tally.farthest, tally.farthestGrazing, tally.farthestAsr,
      tally.firstFault);
}

bool report(const char* title, const std::vector<Life>& lives, bool isEachNamed) {
  const auto tallies = watchAll(lives);
  std::printf("\n%s\n%-18s %10s %9s %6s %7s %5s %5s %6s %5s | %5s %5s %5s | %5s %6s %5s\n", title,
              "place", "ticks", "announced", "missed", "doubled", "extra", "order", "titles",
              "marks", "edge", "asr", "night", "s", "grazed", "Asr");
  Tally sum;
  Tally ofPlace;
  for (std::size_t index = 0; index < lives.size(); ++index) {
    add(sum, tallies[index]);
    add(ofPlace, tallies[index]);
    const bool isLast = index + 1 == lives.size() ||
                        std::strcmp(lives[index].home.name, lives[index + 1].home.name) != 0;
    if (!isLast) continue;
    const bool isNotable = ofPlace.leftAtEdge + ofPlace.leftAsr > 0 || !isClean(ofPlace);
    if (isEachNamed || isNotable) print(lives[index].home.name, ofPlace);
    ofPlace = {};
  }
  print("all", sum);
  std::printf("%.2f microseconds of the processor a tick, %ld looks at the lists counted\n",
              sum.processorSeconds * 1e6 / static_cast<double>(sum.ticks), sum.marksSeen);
  std::fflush(stdout);
  return isClean(sum);
}

int run(std::span<char*> arguments) {
  const auto zones = Hilalor::Desktop::ZoneDatabase::open(arguments.back());
  if (!zones) return 2;
  const std::string_view part = arguments[1];
  if (part == "--short") return report("Hard days", shortLives(), false) ? 0 : 1;
  if (!part.starts_with("--")) return report(arguments[1], hardLives(arguments[1]), true) ? 0 : 1;
  bool isClean = true;
  const auto isAsked = [&](std::string_view one) { return part == one || part == "--all"; };
  if (isAsked("--hard"))
    isClean = report("Hard places, 2026 to 2035, five methods", hardLives(), true) && isClean;
  if (isAsked("--random"))
    isClean = report("500 places on land, 2026", randomLives(*zones), false) && isClean;
  if (isAsked("--whole")) isClean = report("Every tick of 2026", wholeLives(), true) && isClean;
  return isClean ? 0 : 1;
}

}  // namespace
}  // namespace Course

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  return Course::run({argv, static_cast<std::size_t>(argc)});
}
