#pragma once

#include <string>
#include <string_view>

#include "desktop/geodata/Section.hpp"

namespace Hilalor::Desktop {

/// Makes names alike for searching: letter case, diacritics, apostrophes and the ways of writing an
/// Arabic letter, as a table in the data says. The table is sorted by code point; each entry has
/// the code point (16 bits) and the at most two bytes of UTF-8 that stand for it.
class NameFolding {
 public:
  explicit NameFolding(Section table) : table_(table) {}

  /// The text in small letters, its words parted by one space each. Bytes that are no UTF-8 and
  /// characters that the table does not know are left out.
  [[nodiscard]] std::string folded(std::string_view text) const;

 private:
  void append(std::string& result, char32_t character) const;

  Section table_;
};

}  // namespace Hilalor::Desktop
