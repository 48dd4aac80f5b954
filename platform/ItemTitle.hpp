#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Hilalor {

/// The picture that a title begins with.
enum class TitleGlyph { none, calendar, mosque };

/// The glyph as a character, UTF-8; empty for none.
[[nodiscard]] std::string_view character(TitleGlyph glyph);

/// A title in the form that fits a square as small as an icon. Texts are UTF-8.
struct CompactTitle {
  enum class Form {
    empty,  ///< Nothing to show.
    glyph,  ///< The title's glyph.
    page,   ///< `upper` is the day of the month: a calendar's page.
    lines,  ///< `upper` over `lower`, and `minutes` right after that.
  };

  Form form = Form::empty;
  std::string upper{};
  std::string lower{};
  /// Beside hours; may stand smaller.
  std::string minutes{};

  friend bool operator==(const CompactTitle&, const CompactTitle&) = default;
};

/// What the item in the bar says. A bar that has little room shows the compact form; the whole
/// title then stays in the tooltip and the accessible name.
struct ItemTitle {
  TitleGlyph glyph = TitleGlyph::none;
  /// After the glyph, UTF-8; none where the glyph stands alone.
  std::optional<std::string> text{};
  CompactTitle compact{};

  /// The text, empty for none.
  [[nodiscard]] std::string words() const { return text.value_or(std::string()); }

  /// Glyph and text with a space between them.
  [[nodiscard]] std::string whole() const;

  friend bool operator==(const ItemTitle&, const ItemTitle&) = default;
};

}  // namespace Hilalor
