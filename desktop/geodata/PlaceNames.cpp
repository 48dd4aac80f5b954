#include "desktop/geodata/PlaceNames.hpp"

#include <algorithm>
#include <array>

#include "desktop/geodata/Bisection.hpp"
#include "desktop/geodata/PlaceFile.hpp"

namespace Hilalor::Desktop {
namespace {

// One name in so many has its offset written down; those after it are found by walking.
constexpr std::uint32_t kNamesPerStep = 16;
constexpr std::size_t kStepSize = 4;
constexpr std::size_t kOtherSize = 3;
constexpr std::size_t kEntrySize = 3;

}  // namespace

PlaceNames::PlaceNames(const DataFile& file, std::uint32_t placeCount)
    : placeCount_(placeCount),
      steps_(file.section(PlaceFile::kNameSteps)),
      names_(file.section(PlaceFile::kNames)),
      others_(file.section(PlaceFile::kOtherNames)),
      index_(file.section(PlaceFile::kSearch)),
      folding_(file.section(PlaceFile::kFolding)) {}

bool PlaceNames::isSound() const {
  const std::size_t nameCount = placeCount_ + others_.size() / kOtherSize;
  return others_.size() % kOtherSize == 0 && index_.size() % kEntrySize == 0 &&
         steps_.size() == kStepSize * ((nameCount + kNamesPerStep - 1) / kNamesPerStep);
}

std::string_view PlaceNames::name(std::uint32_t place) const {
  if (place >= placeCount_) return {};
  std::size_t offset = steps_.u32(kStepSize * (place / kNamesPerStep));
  for (std::uint32_t i = place % kNamesPerStep; i > 0; --i)
    offset += names_.text(offset).size() + 1;
  return names_.text(offset);
}

std::vector<PlaceNames::Match> PlaceNames::search(std::string_view text) const {
  const std::string key = folding_.folded(text);
  std::vector<Match> matches;
  if (key.empty()) return matches;
  const auto entryName = [&](std::size_t entry) {
    return folding_.folded(names_.text(index_.u24(kEntrySize * entry)));
  };
  const std::size_t count = index_.size() / kEntrySize;
  const auto first = firstNotBefore<std::size_t>(
      0, count, [&](std::size_t entry) { return entryName(entry) < key; });
  const auto longer =
      firstNotBefore(first, count, [&](std::size_t entry) { return entryName(entry) <= key; });
  const auto last = firstNotBefore(
      longer, count, [&](std::size_t entry) { return entryName(entry).starts_with(key); });
  matches.reserve(last - first);
  for (std::size_t entry = first; entry < last; ++entry) {
    const std::uint32_t offset = index_.u24(kEntrySize * entry);
    const auto [number, before] = positionAt(offset);
    const bool isOwn = number < placeCount_;
    const auto place = isOwn ? number : others_.u24(kOtherSize * (number - placeCount_));
    const bool isStart = before == 0 || isArticle(names_.text(offset - before).substr(0, before));
    matches.push_back({place, isOwn, before == 0 && entry < longer, isStart});
  }
  return matches;
}

PlaceNames::Position PlaceNames::positionAt(std::uint32_t offset) const {
  // From the last step at or before the offset on, as many names as end before it.
  const auto after = firstNotBefore<std::size_t>(1, steps_.size() / kStepSize, [&](std::size_t i) {
    return steps_.u32(kStepSize * i) <= offset;
  });
  auto number = static_cast<std::uint32_t>((after - 1) * kNamesPerStep);
  std::size_t begin = steps_.u32(kStepSize * (after - 1));
  for (std::uint32_t i = 0; i < kNamesPerStep; ++i) {
    const std::size_t next = begin + names_.text(begin).size() + 1;
    if (next > offset) break;
    begin = next;
    ++number;
  }
  return {number, offset - static_cast<std::uint32_t>(begin)};
}

bool PlaceNames::isArticle(std::string_view text) const {
  constexpr std::size_t kLongest = 6;
  if (text.size() > kLongest) return false;
  // The Arabic one takes the sound of the letter after it.
  static constexpr std::array<std::string_view, 13> kArticles{
      "al", "ad", "an", "ar", "as", "at", "az", "adh", "ash", "ath", "el", "the", "ال"};
  return std::ranges::find(kArticles, folding_.folded(text)) != kArticles.end();
}

}  // namespace Hilalor::Desktop
