#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "desktop/geodata/DataFile.hpp"
#include "desktop/geodata/NameFolding.hpp"

namespace Hilalor::Desktop {

/// The names of the places of places.bin, by the places' numbers, and the index to search them.
/// Lives no longer than the file.
class PlaceNames {
 public:
  PlaceNames(const DataFile& file, std::uint32_t placeCount);

  /// Whether the sections' sizes fit each other.
  [[nodiscard]] bool isSound() const;

  /// The place's own name; empty beyond the last.
  [[nodiscard]] std::string_view name(std::uint32_t place) const;

  struct Match {
    std::uint32_t place = 0;
    bool isOwnName = false;  ///< And not one of its others.
    bool isWhole = false;    ///< The name has nothing else.
    bool isStart = false;    ///< Nothing but an article stands before it.
  };

  /// The names, places' own and others, of which a word begins like the text once both are folded.
  [[nodiscard]] std::vector<Match> search(std::string_view text) const;

 private:
  struct Position {
    std::uint32_t number;  // of the name: the places' own come first, then the others
    std::uint32_t before;  // in the name, in bytes
  };
  [[nodiscard]] Position positionAt(std::uint32_t offset) const;
  [[nodiscard]] bool isArticle(std::string_view text) const;

  std::uint32_t placeCount_;
  Section steps_;
  Section names_;
  Section others_;
  Section index_;
  NameFolding folding_;
};

}  // namespace Hilalor::Desktop
