#include "datetime/TimeZone.hpp"

#include <sys/stat.h>
#include <unicode/timezone.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <ostream>
#include <tuple>

#include "datetime/ZoneFile.hpp"
#include "datetime/ZoneRule.hpp"

namespace Hilalor {
namespace {

constexpr const char* kMachineZone = "/etc/localtime";
constexpr std::int64_t kSecondsPerDay = 86400;

// As the C library finds it.
std::string zoneFolder() {
  const char* folder = std::getenv("TZDIR");
  return folder != nullptr && *folder != '\0' ? folder : "/usr/share/zoneinfo";
}

// A zone that only ICU's own copy of the database knows.
class LibraryZone final : public ZoneOffsets {
 public:
  LibraryZone(std::string identifier, std::unique_ptr<icu::TimeZone> zone)
      : ZoneOffsets(std::move(identifier)), zone_(std::move(zone)) {}

  [[nodiscard]] int offsetAt(std::int64_t utcSeconds) const override {
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t raw = 0;
    std::int32_t saving = 0;
    zone_->getOffset(static_cast<double>(utcSeconds) * 1000, false, raw, saving, status);
    return U_SUCCESS(status) ? (raw + saving) / 1000 : 0;
  }

 private:
  std::unique_ptr<icu::TimeZone> zone_;
};

// A zone by a rule alone.
class RuleZone final : public ZoneOffsets {
 public:
  RuleZone(std::string identifier, const ZoneRule& rule)
      : ZoneOffsets(std::move(identifier)), rule_(rule) {}

  [[nodiscard]] int offsetAt(std::int64_t utcSeconds) const override {
    return rule_.offsetAt(utcSeconds);
  }

 private:
  ZoneRule rule_;
};

std::shared_ptr<const ZoneOffsets> zoneFromLibrary(const std::string& identifier) {
  std::unique_ptr<icu::TimeZone> zone(
      icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(identifier)));
  if (!zone || *zone == icu::TimeZone::getUnknown()) return nullptr;
  return std::make_shared<LibraryZone>(identifier, std::move(zone));
}

// Tells whether a file is the one seen before, without reading it.
struct FileMark {
  ino_t inode = 0;
  std::int64_t seconds = 0;
  std::int64_t nanoseconds = 0;

  static FileMark of(const struct stat& status) {
    return {status.st_ino, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
  }
  static FileMark ofMachineZone() {
    struct stat status {};
    return lstat(kMachineZone, &status) == 0 ? of(status) : FileMark();
  }
  static FileMark ofZone(const std::string& identifier) {
    struct stat status {};
    return stat((zoneFolder() + '/' + identifier).c_str(), &status) == 0 ? of(status) : FileMark();
  }
  friend bool operator==(const FileMark&, const FileMark&) = default;
};

struct KnownZone {
  std::shared_ptr<const ZoneOffsets> offsets;
  FileMark file;  // None where the rules are the library's.
};

// There are a few hundred zones at most, and a program uses two or three.
std::map<std::string, KnownZone>& knownZones() {
  static std::map<std::string, KnownZone> known;
  return known;
}

std::shared_ptr<const ZoneOffsets> knownZone(const std::string& identifier) {
  const auto found = knownZones().find(identifier);
  if (found != knownZones().end()) return found->second.offsets;
  const auto mark = FileMark::ofZone(identifier);
  auto zone = zoneFromFile(zoneFolder(), identifier);
  if (!zone) zone = zoneFromLibrary(identifier);
  if (zone) knownZones().emplace(identifier, KnownZone{zone, mark});
  return zone;
}

// "/usr/share/zoneinfo/Asia/Riyadh" names "Asia/Riyadh"; empty for a file of no database.
std::string identifierFromPath(const std::string& path) {
  constexpr std::string_view kFolder = "zoneinfo/";
  const auto position = path.rfind(kFolder);
  return position == std::string::npos ? "" : path.substr(position + kFolder.size());
}

std::string identifierFromLink() {
  std::error_code error;
  const auto target = std::filesystem::read_symlink(kMachineZone, error).generic_string();
  return error ? "" : identifierFromPath(target);
}

// The zone that the value of TZ means where no database knows it by that name.
std::shared_ptr<const ZoneOffsets> zoneFromVariable(const std::string& value) {
  const std::string identifier = "TZ:" + value;
  if (value.starts_with('/')) {
    const auto zone = knownZone(identifierFromPath(value));
    return zone ? zone : zoneFromPath(value, identifier);
  }
  const auto rule = ZoneRule::parsed(value);
  return rule ? std::make_shared<RuleZone>(identifier, *rule) : nullptr;
}

// Rules and files outside the database, each read once.
std::shared_ptr<const ZoneOffsets> zoneOutsideDatabase(const std::string& value) {
  static std::map<std::string, std::shared_ptr<const ZoneOffsets>> known;
  const auto [found, isNew] = known.try_emplace(value);
  if (isNew) found->second = zoneFromVariable(value);
  return found->second;
}

std::shared_ptr<const ZoneOffsets> zoneOfVariable(const std::string& value) {
  std::shared_ptr<const ZoneOffsets> zone;
  if (FileMark::ofZone(value) == FileMark()) zone = zoneOutsideDatabase(value);
  if (!zone) zone = knownZone(value);
  return zone ? zone : knownZone("UTC");
}

// The machine's zone where its file is a copy, found by comparing it with the database.
std::string identifierFromCopy() {
  const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::detectHostTimeZone());
  icu::UnicodeString identifier;
  std::string text;
  if (zone) zone->getID(identifier).toUTF8String(text);
  return text;
}

// The machine's zone as of the last look.
struct MachineZone {
  FileMark file;
  std::optional<TimeZone> zone;
};

MachineZone& machineZone() {
  static MachineZone zone;
  return zone;
}

}  // namespace

TimeZone::TimeZone(std::shared_ptr<const ZoneOffsets> offsets) : offsets_(std::move(offsets)) {}

std::optional<TimeZone> TimeZone::named(std::string_view identifier) {
  auto zone = knownZone(std::string(identifier));
  if (!zone) return std::nullopt;
  return TimeZone(std::move(zone));
}

TimeZone TimeZone::current() {
  if (const char* variable = std::getenv("TZ"); variable != nullptr) {
    const std::string value(variable);
    if (auto zone = zoneOfVariable(value.substr(value.starts_with(':') ? 1 : 0))) {
      return TimeZone(std::move(zone));
    }
  }
  auto& [file, zone] = machineZone();
  const auto mark = FileMark::ofMachineZone();
  if (!zone || mark != file) {
    file = mark;
    zone = named(identifierFromLink());
    if (!zone) zone = named(identifierFromCopy());
    if (!zone) zone = named("UTC");
    if (!zone) zone = TimeZone(zoneFromLibrary("UTC"));
  }
  return *zone;
}

void TimeZone::rereadChangedRules() {
  for (auto& [identifier, known] : knownZones()) {
    // Taken before the reading, so that a file changed during it is read again.
    const auto mark = FileMark::ofZone(identifier);
    if (mark == known.file) continue;
    auto zone = zoneFromFile(zoneFolder(), identifier);
    if (!zone) continue;
    known = {std::move(zone), mark};
    machineZone().zone.reset();
  }
}

const std::string& TimeZone::identifier() const {
  return offsets_->identifier();
}

int TimeZone::secondsFromUTC(Date date) const {
  if (!std::isfinite(date.secondsSince1970)) return 0;
  constexpr double kFarthest = 1e15;
  const double seconds = std::clamp(std::floor(date.secondsSince1970), -kFarthest, kFarthest);
  return offsets_->offsetAt(static_cast<std::int64_t>(seconds));
}

std::int64_t TimeZone::utcSeconds(std::int64_t localSeconds, Skipped skipped) const {
  // A day to either side holds at most one change of the clock.
  const std::int64_t before = localSeconds - offsets_->offsetAt(localSeconds - kSecondsPerDay);
  const std::int64_t after = localSeconds - offsets_->offsetAt(localSeconds + kSecondsPerDay);
  const auto shows = [&](std::int64_t utc) {
    return utc + offsets_->offsetAt(utc) == localSeconds;
  };
  if (shows(before)) return shows(after) ? std::min(before, after) : before;
  if (shows(after)) return after;
  if (skipped == Skipped::asMuchLater) return before;

  // The gap's end lies between the two readings of the clock; find where the offset jumps.
  std::int64_t low = after;
  std::int64_t high = before;
  const int lowOffset = offsets_->offsetAt(low);
  while (high - low > 1) {
    const std::int64_t middle = low + (high - low) / 2;
    (offsets_->offsetAt(middle) == lowOffset ? low : high) = middle;
  }
  return high;
}

std::ostream& operator<<(std::ostream& out, const TimeZone& zone) {
  return out << zone.identifier();
}

}  // namespace Hilalor
