#include "datetime/ZoneFile.hpp"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>
#include <vector>

#include "datetime/ZoneRule.hpp"

namespace Hilalor {
namespace {

constexpr std::size_t kHeaderSize = 44;
constexpr std::size_t kMaximumFileSize = 1 << 16;

struct Change {
  std::int64_t utcSeconds = 0;
  int offset = 0;  // from this instant on
};

class FileZone final : public ZoneOffsets {
 public:
  FileZone(std::string identifier, int firstOffset, std::vector<Change> changes,
           std::optional<ZoneRule> rule)
      : ZoneOffsets(std::move(identifier)),
        firstOffset_(firstOffset),
        changes_(std::move(changes)),
        rule_(rule) {}

  [[nodiscard]] int offsetAt(std::int64_t utcSeconds) const override {
    const auto after = std::upper_bound(
        changes_.begin(), changes_.end(), utcSeconds,
        [](std::int64_t instant, const Change& change) { return instant < change.utcSeconds; });
    if (after == changes_.end() && rule_) return rule_->offsetAt(utcSeconds);
    if (after == changes_.begin()) return firstOffset_;
    return std::prev(after)->offset;
  }

 private:
  int firstOffset_;
  std::vector<Change> changes_;
  std::optional<ZoneRule> rule_;
};

// The counts of one block's header, in the order of the file.
struct Counts {
  std::size_t utcFlags, standardFlags, leapSeconds, changes, types, nameBytes;

  [[nodiscard]] std::size_t blockSize(std::size_t timeSize) const {
    return changes * (timeSize + 1) + types * 6 + nameBytes + leapSeconds * (timeSize + 4) +
           standardFlags + utcFlags;
  }
};

std::uint64_t bigEndian(std::string_view bytes) {
  std::uint64_t value = 0;
  for (const char byte : bytes)
    value = value << 8 | static_cast<unsigned char>(byte);
  return value;
}

std::optional<Counts> counts(std::string_view bytes) {
  if (bytes.size() < kHeaderSize || bytes.substr(0, 4) != "TZif" || bytes[4] < '2') {
    return std::nullopt;
  }
  const auto count = [&](std::size_t index) { return bigEndian(bytes.substr(20 + index * 4, 4)); };
  const Counts result{count(0), count(1), count(2), count(3), count(4), count(5)};
  // Zones that count leap seconds are for another kind of clock than ours.
  if (result.types == 0 || result.leapSeconds != 0) return std::nullopt;
  return result;
}

std::vector<int> offsetsOfTypes(std::string_view types, std::size_t count) {
  std::vector<int> offsets;
  for (std::size_t i = 0; i < count; ++i) {
    const auto bits = static_cast<std::uint32_t>(bigEndian(types.substr(i * 6, 4)));
    offsets.push_back(static_cast<std::int32_t>(bits));
  }
  return offsets;
}

// The rule in the footer, between two line feeds; an empty one means that the last change holds.
bool readFooter(std::string_view footer, std::optional<ZoneRule>& rule) {
  if (footer.size() < 2 || footer.front() != '\n') return false;
  const auto end = footer.find('\n', 1);
  if (end == std::string_view::npos) return false;
  if (end == 1) return true;
  rule = ZoneRule::parsed(footer.substr(1, end - 1));
  return rule.has_value();
}

bool isIdentifier(std::string_view text) {
  const auto allowed = [](char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '/' ||
           c == '_' || c == '-' || c == '+';
  };
  return !text.empty() && text.size() < 100 && text.front() != '/' && text.back() != '/' &&
         std::all_of(text.begin(), text.end(), allowed);
}

}  // namespace

std::shared_ptr<const ZoneOffsets> zoneFromBytes(std::string identifier, std::string_view bytes) {
  const auto first = counts(bytes);
  if (!first) return nullptr;
  // The first block repeats the second in 32 bits, for readers of long ago.
  const std::size_t skipped = kHeaderSize + first->blockSize(4);
  if (bytes.size() < skipped) return nullptr;
  bytes.remove_prefix(skipped);
  const auto second = counts(bytes);
  if (!second || bytes.size() < kHeaderSize + second->blockSize(8)) return nullptr;
  bytes.remove_prefix(kHeaderSize);

  const auto times = bytes.substr(0, second->changes * 8);
  const auto typeIndices = bytes.substr(times.size(), second->changes);
  const auto offsets =
      offsetsOfTypes(bytes.substr(times.size() + typeIndices.size()), second->types);
  std::vector<Change> changes;
  changes.reserve(second->changes);
  for (std::size_t i = 0; i < second->changes; ++i) {
    const auto type = static_cast<unsigned char>(typeIndices[i]);
    if (type >= offsets.size()) return nullptr;
    const auto instant = static_cast<std::int64_t>(bigEndian(times.substr(i * 8, 8)));
    if (!changes.empty() && instant <= changes.back().utcSeconds) return nullptr;
    changes.push_back({instant, offsets[type]});
  }
  std::optional<ZoneRule> rule;
  if (!readFooter(bytes.substr(second->blockSize(8)), rule)) return nullptr;
  return std::make_shared<FileZone>(std::move(identifier), offsets.front(), std::move(changes),
                                    rule);
}

std::shared_ptr<const ZoneOffsets> zoneFromFile(std::string_view folder,
                                                std::string_view identifier) {
  if (!isIdentifier(identifier)) return nullptr;
  return zoneFromPath(std::string(folder) + "/" + std::string(identifier), std::string(identifier));
}

std::shared_ptr<const ZoneOffsets> zoneFromPath(const std::string& path, std::string identifier) {
  std::ifstream file(path, std::ios::binary);
  std::string bytes(kMaximumFileSize, '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  return zoneFromBytes(std::move(identifier), bytes);
}

}  // namespace Hilalor
