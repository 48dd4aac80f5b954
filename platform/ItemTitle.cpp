#include "platform/ItemTitle.hpp"

namespace Hilalor {

std::string_view character(TitleGlyph glyph) {
  switch (glyph) {
    case TitleGlyph::none:
      return "";
    case TitleGlyph::calendar:
      return "\U0001F4C5";
    case TitleGlyph::mosque:
      return "\U0001F54C";
  }
  return "";
}

std::string ItemTitle::whole() const {
  std::string result(character(glyph));
  if (!text) return result;
  if (!result.empty()) result += ' ';
  return result + *text;
}

}  // namespace Hilalor
