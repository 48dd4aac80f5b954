#include "desktop/geodata/NameFolding.hpp"

#include "desktop/geodata/Bisection.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr std::size_t kEntrySize = 4;
constexpr char32_t kNoCharacter = 0xFFFFFFFF;

// Takes the first character off the text.
char32_t takeCharacter(std::string_view& text) {
  const auto first = static_cast<unsigned char>(text.front());
  text.remove_prefix(1);
  if (first < 0x80) return first;
  const std::size_t more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
  if (more == 0 || text.size() < more) return kNoCharacter;
  char32_t character = first & (0x3FU >> more);
  for (std::size_t i = 0; i < more; ++i) {
    const auto next = static_cast<unsigned char>(text[i]);
    if ((next & 0xC0) != 0x80) return kNoCharacter;
    character = character << 6 | (next & 0x3FU);
  }
  text.remove_prefix(more);
  return character;
}

}  // namespace

std::string NameFolding::folded(std::string_view text) const {
  std::string result;
  while (!text.empty())
    append(result, takeCharacter(text));
  if (result.ends_with(' ')) result.pop_back();
  return result;
}

void NameFolding::append(std::string& result, char32_t character) const {
  const std::size_t entry =
      kEntrySize * firstNotBefore<std::size_t>(0, table_.size() / kEntrySize, [&](std::size_t i) {
        return table_.u16(kEntrySize * i) < character;
      });
  if (entry >= table_.size() || table_.u16(entry) != character) return;
  const auto first = static_cast<char>(table_.u8(entry + 2));
  const auto second = static_cast<char>(table_.u8(entry + 3));
  if (first == ' ' && (result.empty() || result.ends_with(' '))) return;
  if (first != '\0') result.push_back(first);
  if (second != '\0') result.push_back(second);
}

}  // namespace Hilalor::Desktop
