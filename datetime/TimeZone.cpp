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

namespace Hilalor {
namespace {

constexpr const char* kZoneFolder = "/usr/share/zoneinfo";
constexpr const char* kMachineZone = "/etc/localtime";
constexpr std::int64_t kSecondsPerDay = 86400;

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

std::shared_ptr<const ZoneOffsets> zoneFromLibrary(const std::string& identifier) {
  std::unique_ptr<icu::TimeZone> zone(
      icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(identifier)));
  if (!zone || *zone == icu::TimeZone::getUnknown()) return nullptr;
  return std::make_shared<LibraryZone>(identifier, std::move(zone));
}

std::shared_ptr<const ZoneOffsets> knownZone(const std::string& identifier) {
  // There are a few hundred zones at most, and a program uses two or three.
  static std::map<std::string, std::shared_ptr<const ZoneOffsets>> known;
  const auto found = known.find(identifier);
  if (found != known.end()) return found->second;
  auto zone = zoneFromFile(kZoneFolder, identifier);
  if (!zone) zone = zoneFromLibrary(identifier);
  if (zone) known.emplace(identifier, zone);
  return zone;
}

// "/usr/share/zoneinfo/Asia/Riyadh" names "Asia/Riyadh".
std::string identifierFromLink() {
  std::error_code error;
  const auto target = std::filesystem::read_symlink(kMachineZone, error).generic_string();
  constexpr std::string_view kFolder = "zoneinfo/";
  const auto position = target.rfind(kFolder);
  return error || position == std::string::npos ? "" : target.substr(position + kFolder.size());
}

// The machine's zone where its file is a copy, found by comparing it with the database.
std::string identifierFromCopy() {
  const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::detectHostTimeZone());
  icu::UnicodeString identifier;
  std::string text;
  if (zone) zone->getID(identifier).toUTF8String(text);
  return text;
}

// Tells whether /etc/localtime is the one seen before, without reading it.
struct FileMark {
  ino_t inode = 0;
  std::int64_t seconds = 0;
  std::int64_t nanoseconds = 0;

  static FileMark ofMachineZone() {
    struct stat status {};
    if (lstat(kMachineZone, &status) != 0) return {};
    return {status.st_ino, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
  }
  friend bool operator==(const FileMark&, const FileMark&) = default;
};

}  // namespace

TimeZone::TimeZone(std::shared_ptr<const ZoneOffsets> offsets) : offsets_(std::move(offsets)) {}

std::optional<TimeZone> TimeZone::named(std::string_view identifier) {
  auto zone = knownZone(std::string(identifier));
  if (!zone) return std::nullopt;
  return TimeZone(std::move(zone));
}

TimeZone TimeZone::current() {
  if (const char* variable = std::getenv("TZ"); variable != nullptr) {
    const std::string_view name(variable);
    const auto zone = named(name.substr(name.starts_with(':') ? 1 : 0));
    if (zone) return *zone;
  }
  static FileMark seen;
  static std::optional<TimeZone> machineZone;
  const auto mark = FileMark::ofMachineZone();
  if (!machineZone || mark != seen) {
    seen = mark;
    machineZone = named(identifierFromLink());
    if (!machineZone) machineZone = named(identifierFromCopy());
    if (!machineZone) machineZone = named("UTC");
    if (!machineZone) machineZone = TimeZone(zoneFromLibrary("UTC"));
  }
  return *machineZone;
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
