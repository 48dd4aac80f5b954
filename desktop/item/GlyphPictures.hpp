#pragma once

#include <QImage>
#include <QString>
#include <filesystem>
#include <map>

#include "desktop/item/CompactTitle.hpp"

namespace Hilalor::Desktop {

/// The glyphs that lead a title, as pictures: of the machine's colour emoji font, else our own.
class GlyphPictures {
 public:
  /// `folder` holds calendar.png, mosque.png and blank.png.
  explicit GlyphPictures(const std::filesystem::path& folder);

  /// A square picture at least 100 pixels wide, to be scaled down; read on first use and kept.
  [[nodiscard]] const QImage& picture(TitleParts::Glyph glyph);

  /// Whether programs that draw text themselves find the glyph in a font.
  [[nodiscard]] static bool fontHas(TitleParts::Glyph glyph);

  /// Whether the pictures stand in for the glyph with programs that draw text themselves.
  [[nodiscard]] static bool standInFor(TitleParts::Glyph glyph) {
    return glyph != TitleParts::Glyph::none && !fontHas(glyph);
  }

  /// Our own picture as a file, for bars that want a path; of no glyph, a transparent one.
  [[nodiscard]] QString file(TitleParts::Glyph glyph) const;

 private:
  QString folder_;
  std::map<TitleParts::Glyph, QImage> pictures_;
};

}  // namespace Hilalor::Desktop
